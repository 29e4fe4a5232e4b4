#include "graphs/axis_choice.h"

#include <cstddef>

#include "state/model_variables.h"

namespace tolmer {
std::vector<float> chosenValues(const AnalysisState& state, int iChoice) {
  if (isFitted(state, iChoice)) return state.Fit.sFitted;
  if (isResiduals(state, iChoice)) return state.Fit.sResid;
  const Int16 column = state.iModelCol[static_cast<std::size_t>(iChoice) + 1];
  std::vector<float> values(static_cast<std::size_t>(state.iNumCases) + 1);
  for (int i = 1; i <= state.iNumCases; ++i)
    values[static_cast<std::size_t>(i)] = state.sData(i, column);
  return values;
}

std::string axisTitle(const AnalysisState& state, int iChoice) {
  if (isFitted(state, iChoice)) return "Fitted " + variableName(state, 1);
  return isResiduals(state, iChoice) ? "Residuals" : variableName(state, iChoice + 1);
}

void chooseStartAxes(AnalysisState& state) {
  const Int16 K = state.iNumPredictors;
  state.iPlotXVar = {0, static_cast<Int16>(K + 1), 0, 1};
  state.iPlotYVar = {0, static_cast<Int16>(K + 2), static_cast<Int16>(K + 1), 0};
  state.iSavedPlotXVar = state.iPlotXVar;
  state.iSavedPlotYVar = state.iPlotYVar;
}

}  // namespace tolmer
