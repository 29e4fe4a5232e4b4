// Texts without what stands around them.
#pragma once

#include <algorithm>
#include <string_view>

namespace tolmer {

// What stands between the blanks at both ends; empty where there is nothing else.
constexpr std::string_view trimmed(std::string_view text, std::string_view blanks = " \t") {
  text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
  return text.substr(0, text.find_last_not_of(blanks) + 1);
}

// The same of a line, whose end may have left a carriage return.
constexpr std::string_view trimmedLine(std::string_view line) { return trimmed(line, " \t\r"); }

}  // namespace tolmer
