// What a typed or pasted text becomes in a cell.
#pragma once

#include <string>
#include <string_view>

#include "base/error.h"
#include "editor/sheet_edit.h"

namespace tolmer {

// Headings and labels take any text; control characters become blanks, blanks alone nothing. A
// value cell takes a number, nothing, or a formula that begins with "="; the error says in one
// sentence why it refuses another text.
Result<DataCell> cellFromText(SheetEdit& edit, CellAddress at, std::string_view typed);

// What a user edits: all digits of a number, the text of a formula.
std::string editText(const DataCell& cell);

}  // namespace tolmer
