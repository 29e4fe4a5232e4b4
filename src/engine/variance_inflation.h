// Variance inflation factors: how well each predictor follows from the others.
#pragma once

#include <string>

#include "base/message_box.h"
#include "state/analysis_state.h"

namespace tolmer {

// Regresses each predictor on an intercept and the other predictors, also where the model itself
// has no intercept, and fills sVIF(1..iNumPredictors) with 1 / (1 - R-squared), or 999.999 where
// R-squared is not below 1 or the regression is singular, which shows its message. With fewer than
// two predictors nothing happens.
//
// iTermCol and Fit hold the auxiliary regressions afterwards.
void ComputeVIFs(AnalysisState& state, MessagePort& messages);

// As all displays show it: one decimal, none where there is no finite VIF.
std::string inflationText(float sVIF);

}  // namespace tolmer
