// The colours of graphs: points and bars, lines of theory, grid lines, and how areas are tinted.
#pragma once

#include "platform/look.h"

namespace tolmer {

// The 16 colours of graphs, told apart by everyone and in grey print as far as colours can be.
namespace palette {
inline constexpr int black = 0;
inline constexpr int lightGrey = 7;   // grid lines
inline constexpr int brightBlue = 9;  // data
inline constexpr int brightRed = 12;  // theory and reference
}  // namespace palette

// Black for an index outside the palette.
Colour paletteColour(int index);

// The colour thinned on white to that share, for areas under lines of the full colour.
Colour tint(Colour colour, double share);

// Share of the full colour in filled boxes: on the tint red lines keep a contrast of 2.7 : 1.
inline constexpr double fillShare = 0.38;

}  // namespace tolmer
