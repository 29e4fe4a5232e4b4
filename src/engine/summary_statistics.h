// Mean, spread, range, number picture and kind of each variable of the model.
#pragma once

#include <span>

#include "base/message_box.h"
#include "state/analysis_state.h"

namespace tolmer {

// Fills dDescStat (rows mean, standard deviation with divisor n, minimum, maximum) and tVarFormat
// for the model variables 1..iNumPredictors + 1. A variable whose values are all equal is reported
// as "Zero range for ...", and the work goes on.
void SummaryStats(AnalysisState& state, MessagePort& messages);

// Fills iVarType from the data and the range in dDescStat. Whole numbers of range exactly 1 count
// as a dummy, whatever the two values are.
void ClassifyVariables(AnalysisState& state);

// The larger (smaller) of two singles; the second when they are equal or one is NaN.
float SngMax(float a, float b);
float SngMin(float a, float b);

// Index from 1 of the first largest element; element 0 is not looked at. 1 for an array without
// further elements.
int IndexOfLargest(std::span<const float> sArray);

}  // namespace tolmer
