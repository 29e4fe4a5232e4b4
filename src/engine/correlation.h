// Correlations, of all model variables and of two series.
#pragma once

#include <span>

#include "state/analysis_state.h"

namespace tolmer {

// Fills sCorr for the model variables 1..iNumPredictors + 1 from the means and standard deviations
// in dDescStat. A variable without spread has NaN in its row and column, the diagonal included.
void CorrelationMatrix(AnalysisState& state);

// Correlation of sX(1..n) and sY(1..n), n = iNumCases; NaN where one of them has no spread.
float Correlation(std::span<const float> sX, std::span<const float> sY, int n);

}  // namespace tolmer
