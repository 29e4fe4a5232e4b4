#pragma once

#include "engine/axis_scale.h"
#include "state/analysis_state.h"

namespace tolmer {

// An axis that holds the residuals and the extremes that a normal sample of their number and
// standard error would have. Needs a fit.
AxisScale residualAxis(const AnalysisState& state);

}  // namespace tolmer
