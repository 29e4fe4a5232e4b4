// The rule by which all numeric axes of graphs are scaled and labelled.
#pragma once

#include <string>
#include <vector>

#include "engine/axis_scale.h"
#include "platform/graph/graph_settings.h"

namespace tolmer {

// A numeric axis of a graph never starts below zero: what is added to every value on its way to the
// graph, overlays included. Labels show the values without it.
float axisShift(float sAxisMin);

// Values of an axis as texts, all in the one number picture that suits them; where neighbours would
// read the same, in one with the digits that tell them apart.
std::vector<std::string> scaleTexts(const std::vector<float>& sValues);

// User limits from the scale, shifted, and a label for each of its iSteps + 1 ticks.
void setScaledAxis(Axis& axis, const AxisScale& scale, float sShift);

// An axis of counts that starts at zero: the same limits, but marks and labels at whole numbers
// only.
void setCountAxis(Axis& axis, const AxisScale& scale);

// A variable of two values one apart: half a unit of margin on each side, and the two values alone
// are labelled. Returns the shift.
float setBinaryAxis(Axis& axis, float sLowerValue);

// Limits from the scale as they are, below zero too; the graph chooses ticks and labels itself.
void setAutomaticAxis(Axis& axis, const AxisScale& scale);

}  // namespace tolmer
