// The graphs of how the residuals are distributed. Each needs a fit; `size` is that of the graph.
#pragma once

#include "base/message_box.h"
#include "graphs/graph_content.h"
#include "state/analysis_state.h"

namespace tolmer {

// "Histogram of Residuals": the residuals in classes, under the normal curve they should follow.
GraphContent residualHistogram(const AnalysisState& state, ViewSize size, MessagePort& messages);

// "Histogram of Standardized Residuals": eight classes, each one standard error wide, under the
// standard normal curve.
GraphContent standardizedHistogram(const AnalysisState& state, ViewSize size,
                                   MessagePort& messages);

// "Normality Plot for Residuals": each residual against what it should be in a normal sample.
GraphContent normalityPlot(const AnalysisState& state, ViewSize size, MessagePort& messages);

}  // namespace tolmer
