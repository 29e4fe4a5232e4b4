#include "graphs/axis_choice.h"

#include <cstddef>

namespace tolmer {
namespace {

Int16 dataColumn(const AnalysisState& state, int iChoice) {
  return state.iModelCol[static_cast<std::size_t>(iChoice) + 1];
}

}  // namespace

std::vector<float> chosenValues(const AnalysisState& state, int iChoice) {
  if (isFitted(state, iChoice)) return state.Fit.sFitted;
  if (isResiduals(state, iChoice)) return state.Fit.sResid;
  std::vector<float> values(static_cast<std::size_t>(state.iNumCases) + 1);
  for (int i = 1; i <= state.iNumCases; ++i)
    values[static_cast<std::size_t>(i)] = state.sData(i, dataColumn(state, iChoice));
  return values;
}

std::string axisTitle(const AnalysisState& state, int iChoice) {
  const auto name = [&](int choice) {
    return state.tVarName[static_cast<std::size_t>(dataColumn(state, choice))];
  };
  if (isFitted(state, iChoice)) return "Fitted " + name(0);
  return isResiduals(state, iChoice) ? "Residuals" : name(iChoice);
}

}  // namespace tolmer
