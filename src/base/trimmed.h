// Texts without what stands around them.
#pragma once

#include <algorithm>
#include <string_view>

namespace tolmer {

// What stands between the blanks at both ends; empty where there is nothing else.
constexpr std::string_view trimmed(std::string_view text, std::string_view blanks = " \t") {
  const auto isBlank = [blanks](char c) {
    return std::any_of(blanks.begin(), blanks.end(), [c](char blank) { return c == blank; });
  };
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

// The same of a line, whose end may have left a carriage return.
constexpr std::string_view trimmedLine(std::string_view line) { return trimmed(line, " \t\r"); }

}  // namespace tolmer
