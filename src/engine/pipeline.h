// An analysis in two halves, from the data and model in AnalysisState to the results in it.
// RedimAnalysisArrays comes before them. Neither stops at a message: after a fit that failed, the
// later steps run on what the record holds.
#pragma once

#include "base/message_box.h"
#include "state/analysis_state.h"

namespace tolmer {

// SummaryStats, ClassifyVariables, CorrelationMatrix, ComputeVIFs. Fit holds an auxiliary
// regression afterwards; the main model's numbers stand there only after FitRegression.
void ComputeStatistics(AnalysisState& state, MessagePort& messages);

// Fits the model, then DurbinWatson, SortResiduals, SetResidClasses, FreqTallyDec and
// TallyStdResids; adds one to iCompletedFits.
void FitRegression(AnalysisState& state, MessagePort& messages);

// A whole analysis: RedimAnalysisArrays and both halves, with bAnalysing set meanwhile, since a
// message may stand for long and displays be resized behind it.
void Analyse(AnalysisState& state, MessagePort& messages);

}  // namespace tolmer
