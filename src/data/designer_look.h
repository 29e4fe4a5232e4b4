// Sizes that the designer's layout and its lists share.
#pragma once

#include <algorithm>
#include <cmath>

#include "platform/geometry.h"

namespace tolmer::designer_look {

// Of a row of definitions, and the least of a list's row; without the line below it.
inline constexpr Twips rowHeight = pixels(20);

// The height of the rows of a list that is so high, on whole pixels: as many as have room, and none
// of them cut off.
inline Twips rowHeightToFill(Twips listHeight) {
  const float room = listHeight / twipsPerPixel - 1;
  const float rows = std::max(std::floor(room / (rowHeight / twipsPerPixel + 1)), 1.0F);
  return pixels(std::max(std::floor(room / rows) - 1, rowHeight / twipsPerPixel));
}

}  // namespace tolmer::designer_look
