// The text of formulas after what they refer to has moved. Everything else stays as it was typed:
// blanks, letters' case, spelling of numbers. A text that is no formula keeps its references
// right, too. References that are lost read #REF!; a cell whose new address is also a name is
// written X1:X1.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "formula/sheet_names.h"

namespace tolmer {

// The formula's own cell moved so far, by copy and paste or by sorting: references without "$"
// follow, names stay.
std::string movedFormula(std::string_view text, const SheetNames& names, int rows, int columns);

// Empty rows were put in before row `at`, and the last ones pushed out of the sheet. For every
// formula of the sheet, those whose cells have not moved included.
std::string withRowsInserted(std::string_view text, const SheetNames& names, int at, int count);

// Rows at, at + 1, ... are gone and the later ones have moved up.
std::string withRowsDeleted(std::string_view text, const SheetNames& names, int at, int count);

// The heading of a column changed; `names` are those before. Formulas mean the same columns as
// before: one that can no longer be called by its name, because the name is blank or another
// column's, becomes $B:$B.
std::string withVariableRenamed(std::string_view text, const SheetNames& names, int column,
                                const std::string& newName);

// Bare words that are a name and an address become "[X1]" where meansNoCell(address) holds.
std::string withNamesBracketed(std::string_view text, const SheetNames& names,
                               const std::function<bool(CellAddress cell)>& meansNoCell);

}  // namespace tolmer
