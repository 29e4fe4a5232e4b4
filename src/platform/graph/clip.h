// Lines end at the plot area.
#pragma once

#include "platform/graph/picture.h"

namespace tolmer {

// Where lines may run: the plot area with its headroom, and one unit more for the width of lines
// along its edges.
ViewRect lineArea(const Picture& picture);

// Leaves the part of a segment inside the area; False if there is none or the segment is not
// finite.
bool clip(ViewPoint& a, ViewPoint& b, const ViewRect& area);

}  // namespace tolmer
