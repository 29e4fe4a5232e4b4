#include "base/tabbed_text.h"

namespace tolmer {

std::string tabbedCell(std::string_view text) {
  const bool needsQuotes =
      text.starts_with('"') || text.find_first_of("\t\n\r") != std::string_view::npos;
  if (!needsQuotes) return std::string(text);
  std::string quoted = "\"";
  for (const char c : text) quoted.append(c == '"' ? 2 : 1, c);
  return quoted + '"';
}

}  // namespace tolmer
