// How the cells of all tables look.
#pragma once

#include <string>

#include "platform/grid/sheet.h"

namespace tolmer {

// Black on white.
CellStyle bodyStyle(Align align);
// In the system's button colours, for cells that frame the table.
CellStyle faceStyle(Align align);
// The same, as the heading of a row or column.
CellStyle headingStyle(Align align);

// 1 <= row <= rows, 1 <= col <= cols.
void put(Sheet& sheet, int row, int col, std::string text, const CellStyle& style);
// The whole row takes the style; its texts stay.
void styleRow(Sheet& sheet, int row, const CellStyle& style);

// The first ten characters of a variable's name, where its column (row) has no room for more.
std::string shortened(const std::string& tName);

}  // namespace tolmer
