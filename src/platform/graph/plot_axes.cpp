#include "platform/graph/plot_axes.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>

namespace tolmer {
namespace {

// From 0 to 1 where no point tells anything else.
Scale scaleOfPoints(const std::vector<GraphPoint>& points, float GraphPoint::*coordinate) {
  double least = std::numeric_limits<double>::infinity();
  double greatest = -least;
  for (const GraphPoint& point : points) {
    const double value = point.*coordinate;
    if (!std::isfinite(value)) continue;
    least = std::min(least, value);
    greatest = std::max(greatest, value);
  }
  return least <= greatest ? tidyScale(least, greatest) : Scale{0, 1};
}

Scale scaleOf(const Axis& axis, const std::vector<GraphPoint>& points,
              float GraphPoint::*coordinate) {
  const bool given =
      std::isfinite(axis.minimum) && std::isfinite(axis.maximum) && axis.minimum < axis.maximum;
  if (axis.scaleMode == ScaleMode::userLimits || given) return {axis.minimum, axis.maximum};
  return scaleOfPoints(points, coordinate);
}

AxisMarks automaticMarks(const Scale& scale) {
  AxisMarks marks;
  for (const TidyTick& tick : tidyTicks(scale))
    marks.push_back({scale.share(tick.value), tick.label, true, tick.number});
  return marks;
}

AxisMarks givenMarks(const Axis& axis) {
  AxisMarks marks;
  if (axis.ticks < 1) return marks;
  for (int i = 0; i <= axis.ticks; ++i) {
    const auto index = static_cast<std::size_t>(i);
    marks.push_back({static_cast<double>(i) / axis.ticks,
                     index < axis.labels.size() ? axis.labels[index] : std::string(), true,
                     static_cast<double>(i)});
  }
  return marks;
}

AxisMarks valueMarks(const Axis& axis, const Scale& scale) {
  return axis.scaleMode == ScaleMode::userLimits ? givenMarks(axis) : automaticMarks(scale);
}

std::string nameOf(const GraphSettings& settings, int point) {
  const auto index = static_cast<std::size_t>(point) - 1;
  return index < settings.pointLabels.size() ? settings.pointLabels[index] : std::string();
}

// Marks at the points whose number, counted from `first`, is a multiple of the settings' steps.
AxisMarks pointMarks(const GraphSettings& settings, int first) {
  const int count = static_cast<int>(settings.points.size());
  const int labelEvery = std::max(1, settings.labelEvery);
  const int tickEvery = std::max(1, settings.tickEvery);
  AxisMarks marks;
  for (int point = 1; point <= count; ++point) {
    AxisMark mark;
    mark.place = (point - 0.5) / count;
    mark.ticked = (point - first) % tickEvery == 0;
    const bool labelled = (point - first) % labelEvery == 0;
    if (labelled) mark.label = nameOf(settings, point);
    // Labels alone are thinned: theirs are the numbers that count.
    const int number = (point - first) / labelEvery;
    mark.number = number;
    if (labelled || mark.ticked) marks.push_back(std::move(mark));
  }
  return marks;
}

PlotAxes axesOfSymbols(const GraphSettings& settings) {
  PlotAxes axes;
  axes.x = scaleOf(settings.x, settings.points, &GraphPoint::x);
  axes.y = scaleOf(settings.y, settings.points, &GraphPoint::value);
  axes.below = valueMarks(settings.x, axes.x);
  axes.left = valueMarks(settings.y, axes.y);
  return axes;
}

// Cases are read by round numbers: 40, 80, 120.
PlotAxes axesOfLine(const GraphSettings& settings) {
  PlotAxes axes;
  axes.x = {0.5, static_cast<double>(settings.points.size()) + 0.5};
  axes.y = scaleOf(settings.y, settings.points, &GraphPoint::value);
  axes.below = pointMarks(settings, 0);
  axes.left = valueMarks(settings.y, axes.y);
  return axes;
}

PlotAxes axesOfBars(const GraphSettings& settings) {
  PlotAxes axes;
  axes.x = {settings.x.minimum, settings.x.maximum};
  std::vector<GraphPoint> values = settings.points;
  values.emplace_back();  // bars are lengths from zero
  axes.y = scaleOf(settings.y, values, &GraphPoint::value);
  axes.below = valueMarks(settings.y, axes.y);
  axes.left = pointMarks(settings, 1);
  for (AxisMark& mark : axes.left) mark.place = 1 - mark.place;
  return axes;
}

}  // namespace

PlotAxes plotAxes(const GraphSettings& settings) {
  switch (settings.graphType) {
    case GraphType::horizontalBars:
      return axesOfBars(settings);
    case GraphType::lineWithSymbols:
      return axesOfLine(settings);
    case GraphType::symbols:
      break;
  }
  return axesOfSymbols(settings);
}

bool isBlank(const std::string& text) { return text.find_first_not_of(' ') == std::string::npos; }

}  // namespace tolmer
