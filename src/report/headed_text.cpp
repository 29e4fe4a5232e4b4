#include "report/headed_text.h"

#include <algorithm>

namespace tolmer {
namespace {

constexpr std::string_view capitalsAndBlank = "ABCDEFGHIJKLMNOPQRSTUVWXYZ ";

std::string_view trimmed(std::string_view line) {
  constexpr std::string_view blanks = " \t\r";
  line.remove_prefix(std::min(line.find_first_not_of(blanks), line.size()));
  return line.substr(0, line.find_last_not_of(blanks) + 1);
}

}  // namespace

std::vector<HeadedPart> headedParts(std::string_view text) {
  std::vector<HeadedPart> parts;
  while (!text.empty()) {
    const auto end = std::min(text.find('\n'), text.size());
    const std::string_view line = trimmed(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.empty()) continue;
    const bool isHeading = line.find_first_not_of(capitalsAndBlank) == line.npos;
    if (isHeading || parts.empty()) parts.emplace_back();
    if (isHeading)
      parts.back().heading = line;
    else
      parts.back().paragraphs.push_back(line);
  }
  return parts;
}

}  // namespace tolmer
