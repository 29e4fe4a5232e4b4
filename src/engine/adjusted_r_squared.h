#pragma once

#include "state/analysis_state.h"

namespace tolmer {

// 1 - (1 - R-squared) (n - 1) / (n - terms) of the last fit, formed in single precision; below 0
// where the model explains less than chance would. Not a number without degrees of freedom.
float adjustedRSquared(const AnalysisState& state);

}  // namespace tolmer
