// ComputeStatistics and FitRegression once more as plain loops, each sum on its own and nothing
// shared: the check on the bits of the engine, and the measure of its speed. Tail areas and number
// pictures are the engine's own.
#pragma once

#include "base/message_box.h"
#include "state/analysis_state.h"

namespace tolmer::literal {

void ComputeStatistics(AnalysisState& state, MessagePort& messages);
void FitRegression(AnalysisState& state, MessagePort& messages);

}  // namespace tolmer::literal
