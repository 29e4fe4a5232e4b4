#include "engine/fitted_equation.h"

#include <cmath>

#include "engine/decimals_choice.h"
#include "engine/number_format.h"

namespace tolmer {
namespace {

std::string magnitude(float coefficient) {
  return formatNumber(std::fabs(coefficient),
                      FindFormatStringValue(coefficient, 4, 8, true, false, true, false));
}

std::string termName(const AnalysisState& state, int term) {
  return " " + state.tVarName[state.iTermCol[term]];
}

}  // namespace

std::string fittedEquation(const AnalysisState& state) {
  if (state.Fit.bSingular) return "There is no valid fit. ";
  const auto& coefficients = state.Fit.sCoef;
  std::string text = state.tVarName[state.iModelCol[1]] + " = ";
  if (coefficients[1] < 0) text += " - ";
  text += magnitude(coefficients[1]);
  if (!state.bUseIntercept) text += termName(state, 1);
  for (int i = 2; i <= state.iNumTerms; ++i)
    text +=
        (coefficients[i] <= 0 ? " - " : " + ") + magnitude(coefficients[i]) + termName(state, i);
  return text + ". ";
}

}  // namespace tolmer
