// The scales of a plot and the marks on its two sides, whatever they come from: tick labels of the
// settings, the names of points, or steps of 1, 2 or 5 times a power of ten, as everyone counts,
// where the graph chooses them itself.
#pragma once

#include <string>
#include <vector>

#include "platform/graph/graph_settings.h"

namespace tolmer {

// The values from one end of an axis to the other.
struct Scale {
  double minimum = 0;
  double maximum = 0;

  // From the start of the axis, in parts of its length; not finite where the ends coincide.
  double share(double value) const { return (value - minimum) / (maximum - minimum); }
};

// The least scale of 4 to 12 tidy steps that holds both values, which are finite; around a single
// value where they are equal.
Scale tidyScale(double least, double greatest);

struct TidyTick {
  double value = 0;
  double number = 0;  // whole: how many steps from zero
  std::string label;  // exact, all of a scale with the same number of decimals
};

// Ticks at all multiples of a tidy step: 4 to 11 steps that end at both limits where there is such
// a step, else 4 to 10 that end near them. Empty unless the limits are finite and in rising order.
std::vector<TidyTick> tidyTicks(const Scale& scale);

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
