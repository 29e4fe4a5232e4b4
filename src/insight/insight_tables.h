// Influence and predictions as tables, cell by cell.
#pragma once

#include <span>

#include "insight/model_comparison.h"
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

// A row for each fit that is kept, under its number; `present` is that of the fit in force, 0 for
// none.
TableContent modelsTable(const ModelHistory& models, int present);

// A row for each term: coefficient and standard error in the first and in the second model, "---"
// where a model lacks it. The notes are the sentences.
TableContent comparisonTable(const ModelComparison& comparison);

}  // namespace tolmer
