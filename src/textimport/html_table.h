// The table in copied HTML, for what a browser or a word processor brings: their plain text loses
// merged cells, runs footnote marks into the numbers and makes "103" of ten to the third.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tolmer {

struct HtmlTable {
  std::string text{};   // cells divided by tabs, as spreadsheets copy them
  std::string title{};  // its caption, or a heading over all columns; empty where it has none
  std::vector<std::string> notes{};  // what of the HTML is not in the text; sentences
};

// The largest table. Names in several rows become one, a value that stands for several rows is in
// each of them; what is hidden, raised marks and rows of one cell over all columns are left out.
// Nothing where there is no table of two columns with content, and of what a spreadsheet has
// copied: its plain text says it all.
std::optional<HtmlTable> tableOfHtml(std::string_view html);

}  // namespace tolmer
