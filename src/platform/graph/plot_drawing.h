// The primitives that follow from the settings alone: frame, tick marks, labels, titles, points.
#pragma once

#include "platform/graph/graph_settings.h"
#include "platform/graph/layout.h"
#include "platform/graph/picture.h"

namespace tolmer {

Picture drawPlot(const GraphSettings& settings, const GraphLayout& layout);

}  // namespace tolmer
