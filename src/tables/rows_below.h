// The three rows below a table, of which the middle one explains the colours of its cells.
#pragma once

#include "platform/grid/grid.h"

namespace tolmer {

inline constexpr int rowsBelow = 3;

// A colour that cells are marked with, and what it means.
struct Mark {
  const char* meaning;
  Colour colour;
  bool occurs = false;

  void put(CellStyle& style) {
    style.back = colour;
    occurs = true;
  }
};

inline constexpr Mark pBelow01{"p < .01", colours::cyan};
inline constexpr Mark pBelow05{"p < .05", colours::green};

// Gives the last three rows of the sheet the look of what frames a table.
void styleRowsBelow(Sheet& sheet);

// The meaning on its colour, in that column of the middle row, if the mark occurs.
void putLegend(Sheet& sheet, int col, const Mark& mark, Align align = Align::centre);

// The three rows take that part of the height of the table's first body row, in whole pixels; a
// middle row with a legend keeps its height.
void lowerRowsBelow(Grid& grid, int part);

}  // namespace tolmer
