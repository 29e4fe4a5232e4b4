// The correlations of the model's variables.
#pragma once

#include "state/analysis_state.h"
#include "tables/table_content.h"

namespace tolmer {

// Heads, one row a variable, and rows below with the key. Off the diagonal a correlation whose t,
// of n - 2 degrees of freedom, lies beyond the quantile for n - 1 degrees of freedom is marked: for
// two-sided p below .01, or else below .05.
TableContent correlationTable(const AnalysisState& state);

}  // namespace tolmer
