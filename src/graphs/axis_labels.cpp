#include "graphs/axis_labels.h"

#include <cstddef>

#include "engine/decimals_choice.h"
#include "engine/picture_text.h"

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

void labelTicks(Axis& axis, const AxisScale& scale) {
  std::vector<float> sTicks{0};
  for (int i = 1; i <= scale.iSteps + 1; ++i) sTicks.push_back(tickValue(scale, i));
  axis.labelFormat = scalePicture(sTicks);
  for (int i = 1; i <= scale.iSteps + 1; ++i)
    axis.setLabel(i, formatNumber(sTicks[i], axis.labelFormat));
}

}  // namespace

float axisShift(float sAxisMin) { return sAxisMin < 0 ? -sAxisMin : 0; }

std::vector<std::string> scaleTexts(const std::vector<float>& sValues) {
  std::vector<float> sFromOne{0};
  sFromOne.insert(sFromOne.end(), sValues.begin(), sValues.end());
  const std::string picture = scalePicture(sFromOne);
  std::vector<std::string> texts;
  for (const float sValue : sValues) texts.push_back(formatNumber(sValue, picture));
  return texts;
}

void setScaledAxis(Axis& axis, const AxisScale& scale, float sShift) {
  setUserLimits(axis, scale, sShift);
  labelTicks(axis, scale);
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
