// What assistive programs and test drivers read of a grid: a table with its cells.
#pragma once

#include <QString>
#include <optional>

#include "platform/grid/grid.h"

namespace tolmer {

// To be called before the first grid view is shown.
void installGridAccessibility();

// "Price, 3": the headings of the cell, or what it is said to be.
QString describedCell(const Grid& grid, CellPosition cell);

// The one that is said to have the focus while the grid has it: the active one, in a table without
// a selection the first one of the current lit row.
std::optional<CellPosition> focusedCell(const Grid& grid);

// The number of the cell among the table's children.
int accessibleIndex(const Grid& grid, CellPosition cell);

}  // namespace tolmer
