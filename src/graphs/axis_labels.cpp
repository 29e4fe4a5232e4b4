#include "graphs/axis_labels.h"

#include <cstddef>
#include <vector>

#include "engine/number_format.h"
#include "engine/number_picture.h"

namespace tolmer {
namespace {

void labelTicks(Axis& axis, const AxisScale& scale) {
  const int count = scale.iSteps + 1;
  std::vector<float> sTicks(static_cast<std::size_t>(count) + 1);
  for (int i = 1; i <= count; ++i)
    sTicks[static_cast<std::size_t>(i)] = static_cast<float>(i - 1) * scale.sStep + scale.sAxisMin;
  axis.labelFormat = FindFormatString(sTicks, count, 3, 7, false, true, false, true);
  axis.labels.clear();
  for (int i = 1; i <= count; ++i)
    axis.setLabel(i, formatNumber(sTicks[static_cast<std::size_t>(i)], axis.labelFormat));
}

}  // namespace

float axisShift(float sAxisMin) { return sAxisMin < 0 ? -sAxisMin : 0; }

void setScaledAxis(Axis& axis, const AxisScale& scale, float sShift) {
  axis.scaleMode = ScaleMode::userLimits;
  axis.minimum = scale.sAxisMin + sShift;
  axis.maximum = static_cast<float>(scale.iSteps) * scale.sStep + scale.sAxisMin + sShift;
  axis.ticks = scale.iSteps;
  labelTicks(axis, scale);
}

}  // namespace tolmer
