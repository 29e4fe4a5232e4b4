// What assistive programs and test drivers read of a grid: a table with its cells.
#pragma once

#include "platform/grid/grid.h"

namespace tolmer {

// To be called before the first grid view is shown.
void installGridAccessibility();

// The number of the cell among the table's children.
int accessibleIndex(const Grid& grid, CellPosition cell);

}  // namespace tolmer
