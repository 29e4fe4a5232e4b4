// The cells of a table display.
#pragma once

#include "displays/display_window.h"
#include "report/display_table.h"

namespace tolmer {

// Empty for a display without a grid.
DisplayTable displayTable(const DisplayWindow& display);

}  // namespace tolmer
