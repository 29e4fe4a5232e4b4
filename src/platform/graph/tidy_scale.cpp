#include "platform/graph/tidy_scale.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>

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
    const double power = std::pow(10.0, std::abs(exponent));
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
  const auto exponent = static_cast<int>(std::floor(std::log10(scale.maximum - scale.minimum)));
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
  const int leading = largest > 0 ? static_cast<int>(std::floor(std::log10(largest))) : 0;
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

}  // namespace tolmer
