// Where the keys lead in a grid.
#pragma once

#include <optional>

#include "platform/grid/grid.h"
#include "platform/input.h"

namespace tolmer {

// The cell to which the key leads from the head of the selection (with Shift) or from the active
// cell; none for a key that moves nothing. Hidden rows and columns are stepped over.
std::optional<CellPosition> cellByKey(const Grid& grid, const KeyPress& key);

}  // namespace tolmer
