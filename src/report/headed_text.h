// The written interpretation as headed paragraphs.
#pragma once

#include <string_view>
#include <vector>

namespace tolmer {

struct HeadedPart {
  std::string_view heading;  // empty before the first one
  std::vector<std::string_view> paragraphs;
};

// A line in capitals is a heading, any other line a paragraph; empty lines only divide. The parts
// are views of the text.
std::vector<HeadedPart> headedParts(std::string_view text);

}  // namespace tolmer
