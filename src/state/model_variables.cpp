#include "state/model_variables.h"

#include <cstddef>

namespace tolmer {

bool isAnalysed(const AnalysisState& state) {
  const int variables = state.iNumPredictors + 1;
  const int cases = state.iNumCases;
  return !state.bAnalysing && hasModel(state) && state.sData.lastRow() == cases &&
         state.iModelCol.size() > static_cast<std::size_t>(variables) &&
         state.dDescStat.lastColumn() == variables &&
         state.Fit.sResid.size() == static_cast<std::size_t>(cases) + 1;
}

int listedVariables(const AnalysisState& state) {
  return isAnalysed(state) ? state.iNumPredictors + 1 : 0;
}

const std::string& variableName(const AnalysisState& state, int variable) {
  const Int16 column = state.iModelCol[static_cast<std::size_t>(variable)];
  return state.tVarName[static_cast<std::size_t>(column)];
}

}  // namespace tolmer
