// A page's body taken apart: blocks of text, and the spans inside a text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tolmer {

struct PageBlock {
  enum class Kind { heading, entry, paragraph, list, table, picture };
  Kind kind = Kind::paragraph;
  std::string text;                            // a picture's words
  std::string file;                            // of a picture
  std::vector<std::vector<std::string>> rows;  // of a table; an item is a row of one cell
};

struct PageSpan {
  enum class Kind { plain, bold, link, ground };
  Kind kind = Kind::plain;
  std::string text;
  std::string target;  // of a link; the colour's name of a ground
};

std::vector<PageBlock> pageBlocks(std::string_view body);
std::vector<PageSpan> pageSpans(std::string_view text);

// Where the markup of a span could not be made out it stays in the text, so nothing is ever lost.
std::string plainText(std::string_view text);

}  // namespace tolmer
