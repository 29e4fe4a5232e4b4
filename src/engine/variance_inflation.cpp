#include "engine/variance_inflation.h"

#include <utility>
#include <vector>

#include "engine/auxiliary_fits.h"
#include "engine/least_squares.h"
#include "engine/picture_text.h"

namespace tolmer {
namespace {

constexpr float noFiniteVIF = 999.999F;

// Terms 1..K: the column of ones, then every predictor whose column is not the i-th variable's.
void chooseAuxiliaryTerms(AnalysisState& state, int i) {
  const int K = state.iNumPredictors;
  const Int16 dependent = state.iModelCol[i];
  state.iTermCol[K + 1] = dependent;
  int term = 1;
  for (int j = 2; j <= K + 1; ++j)
    if (state.iModelCol[j] != dependent) state.iTermCol[++term] = state.iModelCol[j];
}

float inflation(float sRSquared) { return sRSquared < 1 ? 1 / (1 - sRSquared) : noFiniteVIF; }

void fitOneByOne(AnalysisState& state, MessagePort& messages) {
  const int K = state.iNumPredictors;
  for (int i = 2; i <= K + 1; ++i) {
    chooseAuxiliaryTerms(state, i);
    MultipleRegression(state.sData, state.iTermCol, K, state.iNumCases, state.Fit, true, messages);
    state.sVIF[i - 1] = inflation(state.Fit.sRSquared);
  }
}

// The record is left as the last of the fits leaves it.
void takeOver(AnalysisState& state, AuxiliaryFits fits, MessagePort& messages) {
  const int K = state.iNumPredictors;
  for (int i = 1; i <= K; ++i) state.sVIF[i] = inflation(fits.sRSquared[i]);
  chooseAuxiliaryTerms(state, K + 1);
  tolmer::Fit& Fit = state.Fit;
  Fit.bSingular = false;
  Fit.sCoef = std::move(fits.sCoef);
  Fit.sVarCov = std::move(fits.sInverse);
  FitStatistics(state.sData, state.iTermCol, state.iNumCases, K, Fit, true, messages);
  VarCovStats(Fit, state.iNumCases, K, messages);
}

// The column of ones, then the predictors, from element 1.
std::vector<Int16> auxiliaryVariables(const AnalysisState& state) {
  const auto predictors = state.iModelCol.begin() + 2;
  std::vector<Int16> variables = {0, state.iTermCol[1]};
  variables.insert(variables.end(), predictors, predictors + state.iNumPredictors);
  return variables;
}

}  // namespace

void ComputeVIFs(AnalysisState& state, MessagePort& messages) {
  const int K = state.iNumPredictors;
  if (K < 2) return;
  RedimFitArrays(state, K);
  state.iTermCol[1] = state.iModelCol[K + 2];
  if (auto fits = fitAuxiliaries(state.sData, auxiliaryVariables(state), state.iNumCases))
    takeOver(state, *std::move(fits), messages);
  else
    fitOneByOne(state, messages);
}

std::string inflationText(float sVIF) { return formatNumber(sVIF, sVIF > 999.99 ? "0" : "0.0"); }

}  // namespace tolmer
