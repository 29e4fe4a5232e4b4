// The rule by which all numeric axes of graphs are scaled and labelled.
#pragma once

#include "engine/axis_scale.h"
#include "platform/graph/graph_settings.h"

namespace tolmer {

// A numeric axis of a graph never starts below zero: what is added to every value on its way to the
// graph, overlays included. Labels show the values without it.
float axisShift(float sAxisMin);

// User limits from the scale, shifted, and a label for each of its iSteps + 1 ticks, all in the one
// number picture that suits them.
void setScaledAxis(Axis& axis, const AxisScale& scale, float sShift);

}  // namespace tolmer
