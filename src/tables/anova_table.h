// The analysis of variance with the overall F test and the summary figures of the fit.
#pragma once

#include <optional>

#include "state/analysis_state.h"
#include "tables/table_content.h"

namespace tolmer {

// What only a model with an intercept has: without one, variation about the mean is not what is
// explained.
struct FitQuality {
  float sRSquared = 0;
  float sR = 0;  // multiple correlation
  float sAdjRSquared = 0;
  float sDurbinWatson = 0;
};

struct AnovaNumbers {
  float sSSR = 0;  // sums of squares, in squared units of the dependent variable
  float sSSE = 0;
  float sSST = 0;
  int iRegressionDf = 0;
  int iErrorDf = 0;
  int iTotalDf = 0;
  float sMSR = 0;  // mean squares; not a number where the degrees of freedom are 0
  float sMSE = 0;
  float sF = 0;
  float sFProb = 0;
  std::optional<FitQuality> quality;
  float sStdErr = 0;
  int iNumCases = 0;
};

AnovaNumbers anovaNumbers(const AnalysisState& state);

// Heads, three sources of variation, a row that divides, and three rows of summary figures; before
// an analysis the heads alone.
TableContent anovaTable(const AnalysisState& state);

}  // namespace tolmer
