// A table in the letters of a terminal.
#pragma once

#include <string>

#include "report/display_table.h"

namespace tolmer {

// Aligned columns, in blocks below one another where they are too many for `width` columns of the
// terminal. What a display says by a colour of its key stands as a mark behind the cell (** cyan,
// * green, ! red, + yellow), and the key below; when `coloured`, the terminal shows the colours
// too.
std::string tableText(const DisplayTable& table, std::size_t width, bool coloured);

}  // namespace tolmer
