// Cells that are pointed at while a formula is typed.
#pragma once

#include <string>

#include "formula/sheet_names.h"

namespace tolmer {

// Whether a cell's address can stand between these two parts of what is typed: behind "=", an
// operator, an open bracket or a comma, and before nothing that would become part of it.
bool takesAddress(const std::string& before, const std::string& behind, const SheetNames& names);

// How a formula calls the cells: "B3", "B1:C20"; headings alone by the name of their column, or
// where that is not clear as "B:B".
std::string addressOf(const CellRange& cells, const SheetNames& names);

}  // namespace tolmer
