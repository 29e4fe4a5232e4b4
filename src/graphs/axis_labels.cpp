#include "graphs/axis_labels.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>
#include <utility>

#include "engine/decimals_choice.h"
#include "engine/number_format.h"

namespace tolmer {
namespace {

float tickValue(const AxisScale& scale, int tick) {
  return static_cast<float>(tick - 1) * scale.sStep + scale.sAxisMin;
}

void setLimits(Axis& axis, const AxisScale& scale, float sShift) {
  axis.minimum = scale.sAxisMin + sShift;
  axis.maximum = static_cast<float>(scale.iSteps) * scale.sStep + scale.sAxisMin + sShift;
}

void setUserLimits(Axis& axis, const AxisScale& scale, float sShift) {
  axis.scaleMode = ScaleMode::userLimits;
  setLimits(axis, scale, sShift);
  axis.ticks = scale.iSteps;
  axis.labels.clear();
}

// The picture for values from element 1.
std::string scalePicture(const std::vector<float>& sValues) {
  const int count = static_cast<int>(sValues.size()) - 1;
  return FindFormatString(sValues, count, 3, 7, false, true, false, true);
}

std::vector<std::string> textsOf(const std::vector<double>& values, const std::string& picture) {
  std::vector<std::string> texts;
  for (const double value : values) texts.push_back(formatNumber(value, picture));
  return texts;
}

bool isTelling(const std::vector<std::string>& texts) {
  return std::ranges::adjacent_find(texts) == texts.end();
}

// With as many digits as tell all of them apart, plain where they are short enough; empty where
// none do.
std::string tellingPicture(const std::vector<double>& values) {
  constexpr double longestPlain = 1e12, smallestPlain = 1e-4;
  double largest = 0;
  for (const double value : values) largest = std::max(largest, std::abs(value));
  const bool isPlain = largest < longestPlain && largest > smallestPlain;
  for (std::size_t decimals = 0; decimals <= 12; ++decimals) {
    std::string picture = "0" + (decimals > 0 ? "." + std::string(decimals, '0') : "");
    if (!isPlain) picture += "E+00";
    if (isTelling(textsOf(values, picture))) return picture;
  }
  return {};
}

struct Texts {
  std::string picture;
  std::vector<std::string> texts;
};

// By the told rule where that tells neighbours apart; else from the values as doubles, since a
// single has seven digits.
Texts scaleTexts(std::vector<float> sValues, const std::vector<double>& values) {
  Texts scale;
  sValues.insert(sValues.begin(), 0);
  scale.picture = scalePicture(sValues);
  for (const float sValue : std::span(sValues).subspan(1))
    scale.texts.push_back(formatNumber(sValue, scale.picture));
  if (isTelling(scale.texts)) return scale;
  const std::string telling = tellingPicture(values);
  return telling.empty() ? scale : Texts{telling, textsOf(values, telling)};
}

void labelTicks(Axis& axis, const AxisScale& scale) {
  std::vector<float> sTicks;
  std::vector<double> ticks;
  for (int i = 1; i <= scale.iSteps + 1; ++i) {
    sTicks.push_back(tickValue(scale, i));
    ticks.push_back((i - 1) * double{scale.sStep} + scale.sAxisMin);
  }
  Texts labels = scaleTexts(std::move(sTicks), ticks);
  axis.labelFormat = std::move(labels.picture);
  axis.labels = std::move(labels.texts);
}

}  // namespace

float axisShift(float sAxisMin) { return sAxisMin < 0 ? -sAxisMin : 0; }

std::vector<std::string> scaleTexts(const std::vector<float>& sValues) {
  return scaleTexts(sValues, {sValues.begin(), sValues.end()}).texts;
}

void setScaledAxis(Axis& axis, const AxisScale& scale, float sShift) {
  setUserLimits(axis, scale, sShift);
  labelTicks(axis, scale);
}

void setCountAxis(Axis& axis, const AxisScale& scale) {
  setScaledAxis(axis, scale, 0);
  if (!(scale.sStep < 1)) return;
  axis.labelFormat = std::string(1, '0');
  for (int i = 1; i <= scale.iSteps + 1; ++i) {
    const float sTick = tickValue(scale, i);
    const bool isWhole = std::abs(sTick - std::round(sTick)) < scale.sStep / 2;
    axis.setLabel(i, isWhole ? formatNumber(std::round(sTick), axis.labelFormat) : "");
  }
}

float setBinaryAxis(Axis& axis, float sLowerValue) {
  const AxisScale scale{static_cast<float>(sLowerValue - 0.5), 0.5F, 4};
  const float sShift = axisShift(scale.sAxisMin);
  setUserLimits(axis, scale, sShift);
  axis.labelFormat = std::string(1, '0');  // GCC 12 warns wrongly of assigning the literal
  for (int i = 1; i <= scale.iSteps + 1; ++i)
    axis.setLabel(i, i % 2 == 0 ? formatNumber(tickValue(scale, i), axis.labelFormat) : " ");
  return sShift;
}

void setAutomaticAxis(Axis& axis, const AxisScale& scale) {
  axis.scaleMode = ScaleMode::automatic;
  setLimits(axis, scale, 0);
}

}  // namespace tolmer
