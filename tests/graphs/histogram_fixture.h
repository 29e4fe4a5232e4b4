// Displays of residuals on a headless desktop.
#pragma once

#include <string>
#include <vector>

#include "displays/display_window.h"
#include "engine/pipeline.h"
#include "platform/headless/headless_desktop.h"
#include "support/regression_data.h"

namespace tolmer::test {

class RecordingHost : public DisplayHost {
 public:
  void controlsDisabled() override { calls.push_back("disabled"); }
  void controlsEnabled() override { calls.push_back("enabled"); }
  void openDisplayMenu() override { calls.push_back("menu"); }
  std::vector<std::string> calls;
};

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
