#include "engine/adjusted_r_squared.h"

#include <limits>

namespace tolmer {

float adjustedRSquared(const AnalysisState& state) {
  const int degrees = state.iNumCases - state.iNumTerms;
  if (degrees == 0) return std::numeric_limits<float>::quiet_NaN();
  const float unexplained = 1.0F - state.Fit.sRSquared;
  const float scaled = unexplained * static_cast<float>(state.iNumCases - 1);
  return 1.0F - scaled / static_cast<float>(degrees);
}

}  // namespace tolmer
