#include "graphs/residual_axis.h"

#include <algorithm>
#include <cstddef>

#include "engine/normal_distribution.h"

namespace tolmer {

AxisScale residualAxis(const AnalysisState& state) {
  const double n = state.iNumCases;
  const float s = state.Fit.sStdErr;
  const auto sLow = static_cast<float>(NormalInverse(1 - 0.5 / n) * s);
  const auto sHigh = static_cast<float>(NormalInverse(1 - (n - 0.5) / n) * s);
  const auto last = static_cast<std::size_t>(state.iNumCases);
  return ComputeScale(std::min(state.sSortedResid[1], sLow),
                      std::max(state.sSortedResid[last], sHigh));
}

}  // namespace tolmer
