#include "platform/graph/axis_ticks.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>

#include "base/portable_math.h"

namespace tolmer {
namespace {

// Seven intervals are read easily; fewer are too coarse, more are crowded.
constexpr double bestCount = 7;
constexpr double fewest = 4;
constexpr double most = 10;

struct Step {
  int factor = 1;  // 1, 2 or 5
  int exponent = 0;

  // A power of ten divides or multiplies, so that the value is the double nearest to its decimals.
  double times(double count) const {
    const double power = portable::pow(10.0, std::abs(exponent));
    return exponent < 0 ? count * factor / power : count * factor * power;
  }
  double size() const { return times(1); }
};

// Limits are singles: their distance from a whole number of steps is only so well known.
double tolerance(const Scale& scale, const Step& step) {
  const double largest = std::max(std::abs(scale.minimum), std::abs(scale.maximum));
  const double rounding = 4 * double{std::numeric_limits<float>::epsilon()} * largest / step.size();
  return std::min(0.05, 1e-6 + rounding);
}

bool isWhole(double count, double tolerance) {
  return std::abs(count - std::round(count)) <= tolerance;
}

// Less is better.
double cost(const Scale& scale, const Step& step) {
  constexpr double never = 1e6;
  constexpr double endsBesideTick = 1e3;
  const double near = tolerance(scale, step);
  const double count = (scale.maximum - scale.minimum) / step.size();
  const bool endsOnTicks =
      isWhole(scale.minimum / step.size(), near) && isWhole(scale.maximum / step.size(), near);
  // A scale of 11 steps has no coarser tidy step that ends at both limits.
  if (count < fewest - 2 * near || count > most + (endsOnTicks ? 1 : 0) + 2 * near) return never;
  return std::abs(count - bestCount) + (endsOnTicks ? 0 : endsBesideTick);
}

Step bestStep(const Scale& scale) {
  const auto exponent =
      static_cast<int>(std::floor(portable::log10(scale.maximum - scale.minimum)));
  Step best;
  double least = std::numeric_limits<double>::infinity();
  // From coarse to fine, so that of two equally good steps the rounder one is taken.
  for (int e = exponent; e >= exponent - 2; --e)
    for (const int factor : {5, 2, 1})
      if (const Step step{factor, e}; cost(scale, step) < least) {
        best = step;
        least = cost(scale, step);
      }
  return best;
}

std::string written(double value, std::chars_format format, int decimals) {
  std::array<char, 160> text{};
  const auto [end, error] =
      std::to_chars(text.data(), text.data() + text.size(), value, format, decimals);
  if (error != std::errc()) return {};
  std::replace(text.data(), end, 'e', 'E');
  return {text.data(), end};
}

std::size_t longest(const std::vector<std::string>& texts) {
  std::size_t length = 0;
  for (const std::string& text : texts) length = std::max(length, text.size());
  return length;
}

// With exponents where the plain numbers would be longer than that and than the others.
constexpr std::size_t longestPlainLabel = 8;

std::vector<std::string> labelsOf(const std::vector<TidyTick>& ticks, const Step& step) {
  double largest = 0;
  for (const TidyTick& tick : ticks) largest = std::max(largest, std::abs(tick.value));
  const int leading = largest > 0 ? static_cast<int>(std::floor(portable::log10(largest))) : 0;
  std::vector<std::string> plain;
  std::vector<std::string> scientific;
  for (const TidyTick& tick : ticks) {
    plain.push_back(written(tick.value, std::chars_format::fixed, std::max(0, -step.exponent)));
    scientific.push_back(
        written(tick.value, std::chars_format::scientific, std::max(0, leading - step.exponent)));
  }
  const std::size_t length = longest(plain);
  return length <= longestPlainLabel || length <= longest(scientific) ? plain : scientific;
}

bool isScale(const Scale& scale) {
  return std::isfinite(scale.minimum) && std::isfinite(scale.maximum) &&
         scale.minimum < scale.maximum;
}

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
    const bool hasText = index < axis.labels.size();
    const std::string label = hasText ? axis.labels[index] : std::string();
    const bool isTicked = !hasText || !label.empty();
    marks.push_back({static_cast<double>(i) / axis.ticks, label, isTicked, static_cast<double>(i)});
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

Scale tidyScale(double least, double greatest) {
  if (!(least < greatest)) {
    const double half = least == 0 ? 1 : std::abs(least) / 2;
    least -= half;
    greatest = least + 2 * half;
  }
  const Scale extent{least, greatest};
  const Step step = bestStep(extent);
  const double near = tolerance(extent, step);
  return {step.times(std::floor(least / step.size() + near)),
          step.times(std::ceil(greatest / step.size() - near))};
}

std::vector<TidyTick> tidyTicks(const Scale& scale) {
  if (!isScale(scale)) return {};
  const Step step = bestStep(scale);
  const double near = tolerance(scale, step);
  const double first = std::ceil(scale.minimum / step.size() - near);
  const auto steps = static_cast<int>(std::floor(scale.maximum / step.size() + near) - first);
  std::vector<TidyTick> ticks;
  for (int i = 0; i <= steps; ++i)  // a sum of zeros of either sign is a zero without
    ticks.push_back({step.times(first + i), first + i, {}});
  const std::vector<std::string> labels = labelsOf(ticks, step);
  for (std::size_t i = 0; i < ticks.size(); ++i) ticks[i].label = labels[i];
  return ticks;
}

PlotAxes plotAxes(const GraphSettings& settings) {
  if (settings.graphType == GraphType::horizontalBars) return axesOfBars(settings);
  if (settings.graphType == GraphType::lineWithSymbols) return axesOfLine(settings);
  return axesOfSymbols(settings);
}

bool isBlank(const std::string& text) { return text.find_first_not_of(' ') == std::string::npos; }

}  // namespace tolmer
