// What those hear of a grid who do not see it.
#pragma once

#include <optional>
#include <string>

#include "platform/grid/grid.h"

namespace tolmer {

// The heading of the column (row): beside the cells where these are shown, else that of the first
// row (column) where it is set as a heading; empty without.
std::string columnHeading(const Grid& grid, int col);
std::string rowHeading(const Grid& grid, int row);
// The cell that has the focus: the active one, or the beginning of the current row.
std::optional<CellPosition> focusedCell(const Grid& grid);
// What the cell's colour and its corner mark say.
std::string remarksOn(const Grid& grid, CellPosition cell);
// Its headings, or what its owner says in their place, and its remarks; with the first cell of a
// table's row what its owner says of the row.
std::string describedCell(const Grid& grid, CellPosition cell);
// All cells of the row.
std::string spokenRow(const Grid& grid, int row);

}  // namespace tolmer
