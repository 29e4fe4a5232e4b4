#include "engine/pipeline.h"

#include "engine/correlation.h"
#include "engine/least_squares.h"
#include "engine/residual_classes.h"
#include "engine/summary_statistics.h"
#include "engine/variance_inflation.h"

namespace tolmer {
namespace {

void chooseModelTerms(AnalysisState& state) {
  const int K = state.iNumPredictors;
  const int firstPredictor = state.bUseIntercept ? 2 : 1;
  state.iNumTerms = static_cast<Int16>(K + firstPredictor - 1);
  RedimFitArrays(state, state.iNumTerms);
  // With an intercept entry 1 stays 0, the column of ones.
  for (int i = 0; i < K; ++i) state.iTermCol[firstPredictor + i] = state.iModelCol[2 + i];
  state.iTermCol[state.iNumTerms + 1] = state.iModelCol[1];
}

}  // namespace

void ComputeStatistics(AnalysisState& state, MessagePort& messages) {
  SummaryStats(state, messages);
  ClassifyVariables(state);
  CorrelationMatrix(state);
  ComputeVIFs(state, messages);
}

void FitRegression(AnalysisState& state, MessagePort& messages) {
  chooseModelTerms(state);
  MultipleRegression(state.sData, state.iTermCol, state.iNumTerms, state.iNumCases, state.Fit,
                     state.bUseIntercept, messages);
  DurbinWatson(state);
  SortResiduals(state);
  SetResidClasses(state);
  FreqTallyDec(state, messages);
  TallyStdResids(state);
  ++state.iCompletedFits;
}

void Analyse(AnalysisState& state, MessagePort& messages) {
  state.bAnalysing = true;
  RedimAnalysisArrays(state);
  ComputeStatistics(state, messages);
  FitRegression(state, messages);
  state.bAnalysing = false;
}

}  // namespace tolmer
