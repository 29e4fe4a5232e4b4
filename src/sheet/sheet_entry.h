// What a typed or pasted text becomes in a cell.
#pragma once

#include <string>
#include <string_view>

#include "base/error.h"
#include "sheet/sheet_edit.h"

namespace tolmer {

struct CellEntry {
  DataCell cell{};
  std::string taken{};  // a sentence where the text was read as something not written so
};

// Headings and labels take any text; control characters become blanks, blanks alone nothing. A
// value cell takes nothing, a formula, which begins with "=" or a sign, or a number: also one with
// marks that can only mean one number ($5, 1 234, (5), 1,234,567). The error says in one sentence
// why it refuses another text, and names the spellings of all that the text can mean.
Result<CellEntry> cellFromText(SheetEdit& edit, CellAddress at, std::string_view typed);

// What a user edits: all digits of a number, the text of a formula.
std::string editText(const DataCell& cell);

}  // namespace tolmer
