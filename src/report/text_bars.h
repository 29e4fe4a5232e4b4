// Graphs that a terminal can show: bars of letters.
#pragma once

#include <string>

#include "platform/graph/graph.h"
#include "state/analysis_state.h"

namespace tolmer {

// A line for each class of the residuals: its limits, a bar, its count. Empty without classes.
std::string residualBars(const AnalysisState& state);

// The same in the eight classes of one standard error; the outer ones hold what lies beyond, too.
std::string standardizedBars(const AnalysisState& state);

// A line for each bar of the VIF chart as it is drawn, from 1 to 1000 on a logarithmic scale, with
// the predictor's VIF. Empty where no predictor has one.
std::string inflationBars(const AnalysisState& state, const Graph& chart);

}  // namespace tolmer
