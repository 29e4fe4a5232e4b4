// The primitives that follow from the settings alone: frame, tick marks, labels, titles, and the
// points as symbols, as a line through them, as bars, with their regression line.
#pragma once

#include "platform/graph/graph_settings.h"
#include "platform/graph/layout.h"
#include "platform/graph/picture.h"

namespace tolmer {

Picture drawPlot(const GraphSettings& settings, const GraphLayout& layout);

}  // namespace tolmer
