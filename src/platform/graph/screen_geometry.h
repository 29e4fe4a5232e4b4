// Primitives as painters draw them: origin at the upper left, thin lines on whole pixels.
#pragma once

#include <vector>

#include "platform/graph/picture.h"

namespace tolmer {

// The points of a line. Level and upright lines one unit wide lie on the middle of a pixel row or
// column, so that they are sharp at every whole scale factor.
std::vector<ViewPoint> screenLine(const LinePrimitive& line, const ViewSize& view);

// The path of a box's outline, one unit wide. Each edge is rounded for itself, so that gaps between
// neighbouring boxes stay equal. `bottom` is the upper edge here, since y grows downward.
ViewRect screenBox(const BoxPrimitive& box, const ViewSize& view);

// The anchor of a text, its base line on a whole pixel.
ViewPoint screenAnchor(const TextPrimitive& text, const ViewSize& view);

ViewPoint screenPoint(const ViewPoint& point, const ViewSize& view);

}  // namespace tolmer
