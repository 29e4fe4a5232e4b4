// How points are drawn: as symbols, as a line through them, as bars, with their regression line.
#pragma once

#include "platform/graph/graph_settings.h"
#include "platform/graph/layout.h"
#include "platform/graph/picture.h"

namespace tolmer {

// Appends what the settings say of their points to a picture that has its frame.
void drawPoints(const GraphSettings& settings, const GraphLayout& layout, Picture& picture);

// Diameter of point symbol 12 or 13 at that percentage of its usual size, or at the percentage that
// suits the number of points where it is 0.
double symbolDiameter(const GraphSettings& settings, const GraphLayout& layout);

}  // namespace tolmer
