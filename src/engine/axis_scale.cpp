#include "engine/axis_scale.h"

#include <algorithm>
#include <cmath>

#include "base/portable_math.h"

namespace tolmer {
namespace {

double tidyFactor(float m) {
  if (m < 2) return 2;
  return m < 5 ? 5 : 10;
}

Int16 asSteps(double steps) { return static_cast<Int16>(std::clamp(steps, 0.0, 32767.0)); }

}  // namespace

AxisScale ComputeScale(float sLow, float sHigh) {
  AxisScale scale;
  scale.sAxisMin = sLow;
  const float r = sHigh - sLow;
  if (!(r > 0) || std::isinf(r)) return scale;
  const double e = std::floor(portable::log10(double{r}));
  const auto m = static_cast<float>(r / portable::pow(10.0, e));
  const auto sStep = static_cast<float>(tidyFactor(m) * portable::pow(10.0, e - 1));
  if (sStep == 0) return scale;
  scale.sStep = sStep;
  scale.sAxisMin = static_cast<float>(std::floor(double{sLow} / sStep + 0.01) * sStep);
  // A whole number takes the type of its partner: all singles, so that 1 / 0.2 is 5 here.
  scale.iSteps = asSteps(std::floor((sHigh - scale.sAxisMin) / sStep + 1));
  return scale;
}

}  // namespace tolmer
