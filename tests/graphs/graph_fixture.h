// Displays of residuals on a headless desktop.
#pragma once

#include <string>
#include <vector>

#include "engine/pipeline.h"
#include "platform/headless/headless_desktop.h"
#include "support/recording_host.h"
#include "support/regression_data.h"

namespace tolmer::test {

inline void analyse(AnalysisState& state, HeadlessDesktop& desktop) {
  RedimAnalysisArrays(state);
  ComputeStatistics(state, desktop);
  FitRegression(state, desktop);
}

inline void setInnerSize(Window& window, double width, double height) {
  window.reportInnerSize({pixels(static_cast<float>(width)), pixels(static_cast<float>(height))});
}

// A fit whose residuals are the given ones as they stand.
inline void setResiduals(AnalysisState& state, std::vector<float> sorted, float standardError) {
  state.iNumCases = static_cast<Int16>(sorted.size());
  sorted.insert(sorted.begin(), 0);
  state.sSortedResid = sorted;
  state.Fit.sStdErr = standardError;
  state.iCompletedFits = 1;
}

}  // namespace tolmer::test
