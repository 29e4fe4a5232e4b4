// The cells of a table display.
#pragma once

#include "platform/grid/grid.h"
#include "report/display_table.h"

namespace tolmer {

DisplayTable displayTable(const Grid& grid);

}  // namespace tolmer
