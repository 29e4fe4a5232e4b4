// ComputeStatistics and FitRegression once more as plain loops, each sum on its own and nothing
// shared: the check on the bits of the engine, and the measure of its speed.
#pragma once

#include <span>
#include <string>

#include "base/message_box.h"
#include "state/analysis_state.h"

namespace tolmer::literal {

void ComputeStatistics(AnalysisState& state, MessagePort& messages);
void FitRegression(AnalysisState& state, MessagePort& messages);

// The number picture of a column, with decimals from the values' general text.
std::string FindFormatString(std::span<const float> sValues, int iCount, int iDigits, int W,
                             bool bWholeCheck, bool bCommas, bool bExponent);

}  // namespace tolmer::literal
