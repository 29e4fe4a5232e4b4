// A table in the letters of a terminal.
#pragma once

#include <string>

#include "tables/table_content.h"

namespace tolmer {

// Aligned columns, in blocks below one another where they are too many for `width` columns of the
// terminal. What a display marks and explains by its key stands as a sign behind the cell (** p
// below .01, * p below .05, ! large VIF, + outlier), and the key below; when `coloured`, the
// terminal shows the colours too.
std::string tableText(const TableContent& table, std::size_t width, bool coloured);

}  // namespace tolmer
