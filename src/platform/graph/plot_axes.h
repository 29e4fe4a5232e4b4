// The scales of a plot and the marks on its two sides, whatever they come from: tick labels of the
// settings, tidy steps, or the names of points.
#pragma once

#include <string>
#include <vector>

#include "platform/graph/graph_settings.h"
#include "platform/graph/tidy_scale.h"

namespace tolmer {

struct AxisMark {
  double place = 0;   // from the start of the side, at the left or below, in parts of its length
  std::string label;  // may be blank
  bool ticked = true;
  double number = 0;  // whole: crowded labels are thinned to those of every so many numbers
};

using AxisMarks = std::vector<AxisMark>;

struct PlotAxes {
  // Of values; points of a line lie at 1 .. N on x.
  Scale x;
  Scale y;
  AxisMarks below;
  AxisMarks left;
};

PlotAxes plotAxes(const GraphSettings& settings);

bool isBlank(const std::string& text);

}  // namespace tolmer
