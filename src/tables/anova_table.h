// The analysis of variance with the overall F test and the summary figures of the fit.
#pragma once

#include <limits>
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

// After a failed fit only degrees of freedom and cases are numbers.
struct AnovaNumbers {
  static constexpr float none = std::numeric_limits<float>::quiet_NaN();

  float sSSR = none;  // sums of squares, in squared units of the dependent variable
  float sSSE = none;
  float sSST = none;
  int iRegressionDf = 0;
  int iErrorDf = 0;
  int iTotalDf = 0;
  float sMSR = none;  // mean squares; not a number where the degrees of freedom are 0
  float sMSE = none;
  float sF = none;
  float sFProb = none;
  std::optional<FitQuality> quality;
  float sStdErr = none;
  int iNumCases = 0;
};

AnovaNumbers anovaNumbers(const AnalysisState& state);

// Heads, three sources of variation, a row that divides, and three rows of summary figures; before
// an analysis the heads alone.
TableContent anovaTable(const AnalysisState& state);

}  // namespace tolmer
