#include "engine/variance_inflation.h"

#include "engine/least_squares.h"

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

float inflation(float sRSquared) {
  return sRSquared < 1 ? static_cast<float>(1.0 / (1.0 - sRSquared)) : noFiniteVIF;
}

}  // namespace

void ComputeVIFs(AnalysisState& state, MessagePort& messages) {
  const int K = state.iNumPredictors;
  if (K < 2) return;
  RedimFitArrays(state, K);
  state.iTermCol[1] = state.iModelCol[K + 2];
  for (int i = 2; i <= K + 1; ++i) {
    chooseAuxiliaryTerms(state, i);
    MultipleRegression(state.sData, state.iTermCol, K, state.iNumCases, state.Fit, true, messages);
    state.sVIF[i - 1] = inflation(state.Fit.sRSquared);
  }
}

}  // namespace tolmer
