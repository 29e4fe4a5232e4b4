// What the lists of the control panel offer for the axes of a scatter plot, by the index in them:
// 0 the dependent variable, 1 to K the predictors, K + 1 the fitted values, and K + 2 on the
// horizontal axis the order of entry, on the vertical one the residuals.
#pragma once

#include <string>
#include <vector>

#include "state/analysis_state.h"

namespace tolmer {

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
