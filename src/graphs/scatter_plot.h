// "Scatter Plot 1" to "Scatter Plot 3": a pair of axes as a scatter plot or, over the order of
// entry, as a line through all cases. Choices of axes are those of axis_choice.h.
#pragma once

#include <optional>

#include "base/message_box.h"
#include "graphs/graph_content.h"
#include "state/analysis_state.h"

namespace tolmer {

// The plot of that number, 1 to 3, with its own pair of axes. Needs a fit; `size` is that of the
// graph.
GraphContent scatterPlot(const AnalysisState& state, int iNumber, ViewSize size,
                         MessagePort& messages);

// Of what stands on the two axes; NaN where one of them has no spread. The residuals are
// uncorrelated with the predictors and the fit, so that is not computed but 0, whatever rounding
// left. Nothing for the order of entry.
std::optional<float> plotCorrelation(const AnalysisState& state, int iXChoice, int iYChoice);

}  // namespace tolmer
