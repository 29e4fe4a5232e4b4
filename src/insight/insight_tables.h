// Influence and predictions as tables, cell by cell.
#pragma once

#include <span>

#include "insight/prediction.h"
#include "secondfit/second_fit.h"
#include "state/analysis_state.h"
#include "tables/table_content.h"

namespace tolmer {

// A row for each case: leverage, both studentized residuals, Cook's distance, DFFITS. The notes
// name the largest leverage and distance.
TableContent influenceTable(const AnalysisState& state, const SecondFit& fit);

// A row for each new case; the notes tell which of them lie outside the data and why.
TableContent predictionTable(std::span<const PredictedCase> predictions);

}  // namespace tolmer
