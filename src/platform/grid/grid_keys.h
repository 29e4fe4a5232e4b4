// Where the keys lead in a grid.
#pragma once

#include <optional>

#include "platform/grid/grid.h"
#include "platform/input.h"

namespace tolmer {

// The cell to which the key leads from the head of the selection (with Shift) or from the active
// cell; none for a key that moves nothing. Hidden rows and columns are stepped over.
std::optional<CellPosition> cellByKey(const Grid& grid, const KeyPress& key);

// The same from any cell in a sheet that is worked on: arrows with Control stop at the edges of
// what is filled, and Control+End leads to the last row and column in use.
std::optional<CellPosition> cellByEditKey(const Grid& grid, const KeyPress& key, CellPosition from);

// The last row and the last column in which a cell has text; 0 in an empty sheet.
CellPosition lastUsedCell(const Sheet& sheet);

}  // namespace tolmer
