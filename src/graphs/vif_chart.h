// "Variance Inflation Factors": a bar for each predictor, on a logarithmic scale.
#pragma once

#include "base/message_box.h"
#include "graphs/graph_content.h"
#include "state/analysis_state.h"

namespace tolmer {

// Needs a fit; `size` is that of the graph.
GraphContent vifChart(const AnalysisState& state, ViewSize size, MessagePort& messages);

}  // namespace tolmer
