#include "editor/sheet_copy.h"

namespace tolmer {

std::string tabbedCell(const std::string& text) {
  if (!text.starts_with('"') && text.find_first_of("\t\n\r") == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char c : text) quoted.append(c == '"' ? 2 : 1, c);
  return quoted + '"';
}

}  // namespace tolmer
