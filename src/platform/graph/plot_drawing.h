// The primitives that follow from the settings alone: frame, tick marks, labels, titles, points.
#pragma once

#include "platform/graph/graph_settings.h"
#include "platform/graph/layout.h"
#include "platform/graph/picture.h"

namespace tolmer {

Picture drawPlot(const GraphSettings& settings, const GraphLayout& layout);

// Diameter of point symbol 12 or 13 at that percentage of its usual size, or at the percentage that
// suits the number of points where it is 0.
double symbolDiameter(const GraphSettings& settings, const GraphLayout& layout);

}  // namespace tolmer
