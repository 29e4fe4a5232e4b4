// "Scatter Plot 1" to "Scatter Plot 3": a pair of axes as a scatter plot or, over the order of
// entry, as a line through all cases. Choices of axes are told below.
#pragma once

#include <optional>
#include <string>
#include <vector>

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

// What the lists of the control panel offer for the axes of a scatter plot, by the index in them:
// 0 the dependent variable, 1 to K the predictors, K + 1 the fitted values, and K + 2 on the
// horizontal axis the order of entry, on the vertical one the residuals.

inline bool isFitted(const AnalysisState& state, int iChoice) {
  return iChoice == state.iNumPredictors + 1;
}
inline bool isEntryOrder(const AnalysisState& state, int iXChoice) {
  return iXChoice == state.iNumPredictors + 2;
}
inline bool isResiduals(const AnalysisState& state, int iYChoice) {
  return iYChoice == state.iNumPredictors + 2;
}

// (1..iNumCases) in order of entry; the residuals for the choice K + 2.
std::vector<float> chosenValues(const AnalysisState& state, int iChoice);

// "Residuals" for the choice K + 2.
std::string axisTitle(const AnalysisState& state, int iChoice);

// The pairs that a new analysis begins with: residuals on fitted values, fitted values on the
// dependent variable, the dependent variable on the first predictor. Sets the saved ones, too.
void chooseStartAxes(AnalysisState& state);

}  // namespace tolmer
