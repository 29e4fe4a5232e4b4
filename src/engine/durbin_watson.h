// Autocorrelation of the residuals of the main fit.
#pragma once

#include "state/analysis_state.h"

namespace tolmer {

// Fit.sDurbinWatson from the residuals in case order; NaN or infinite where Fit.sSSE is 0.
void DurbinWatson(AnalysisState& state);

}  // namespace tolmer
