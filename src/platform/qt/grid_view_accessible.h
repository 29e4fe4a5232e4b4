// What assistive programs and test drivers read of a grid: a table with its cells.
#pragma once

#include <QString>

#include "platform/grid/grid.h"

namespace tolmer {

// To be called before the first grid view is shown.
void installGridAccessibility();

// "Price, 3": the headings of the cell.
QString describedCell(const Grid& grid, CellPosition cell);

// The number of the cell among the table's children.
int accessibleIndex(const Grid& grid, CellPosition cell);

}  // namespace tolmer
