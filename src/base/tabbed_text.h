// Tables as text, cells divided by tabs and rows by line ends, as spreadsheets read and write them.
#pragma once

#include <string>
#include <string_view>

namespace tolmer {

// The cell as it stands in such a text: in quotation marks, those inside doubled, where it holds a
// tab or a line end, or begins with a quotation mark.
std::string tabbedCell(std::string_view text);

}  // namespace tolmer
