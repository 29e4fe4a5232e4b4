// Fitting a grid to the window that it fills.
#pragma once

#include "platform/grid/grid.h"

namespace tolmer {

// The bars that a content of that size needs in that room. A bar takes room of its thickness from
// the other direction, which can bring in the second bar. All lengths are twips.
ScrollBars neededScrollBars(Size content, Size room, Twips thickness);

// What is shown of a text that is wider than the room of its cell. A number without its last digits
// would look like another one: "#" as often as they fit, of that width, but once at least. Empty
// for all other texts, which may be cut short.
std::string shownForFigure(const Cell& cell, double room, double markWidth);

// Each row as high as its tallest text, at least that high, each column as wide as its widest text
// and a blank.
void fitToTexts(Grid& grid, Twips lowestRow);

// Sets the scroll bars; where room is left in a direction, spreads it evenly over all columns from
// the second (rows from the second) in whole pixels, the remainder on the last one. So a small
// table fills its window. A row that only parts others keeps its height; 0 for none.
void fillRoom(Grid& grid, Size room, Twips barThickness, int partingRow = 0);

}  // namespace tolmer
