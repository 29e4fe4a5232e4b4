// Displays of residuals on a headless desktop.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/pipeline.h"
#include "platform/headless/headless_desktop.h"
#include "support/graph_pictures.h"
#include "support/recording_host.h"
#include "support/regression_data.h"

namespace tolmer::test {

class DisplayFixture : public testing::Test {
 protected:
  HeadlessDesktop desktop;
  RecordingHost host;
  AnalysisState state;
};

inline void analyse(AnalysisState& state, HeadlessDesktop& desktop) {
  RedimAnalysisArrays(state);
  ComputeStatistics(state, desktop);
  FitRegression(state, desktop);
}

inline void setInnerSize(Window& window, double width, double height) {
  window.reportInnerSize({pixels(static_cast<float>(width)), pixels(static_cast<float>(height))});
}

// A fit of a model without data, whose residuals are the given ones as they stand.
inline void setResiduals(AnalysisState& state, std::vector<float> sorted, float standardError) {
  state = emptyModel(static_cast<int>(sorted.size()), 1);
  sorted.insert(sorted.begin(), 0);
  state.sSortedResid = sorted;
  state.Fit.sStdErr = standardError;
  state.iCompletedFits = 1;
}

// Every text stands inside the picture and on no other one.
inline void expectReadable(const Picture& picture) {
  const auto texts = all<TextPrimitive>(picture);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const ViewRect a = textBounds(texts[i]);
    EXPECT_TRUE(a.left >= 0 && a.bottom >= 0 && a.right() <= picture.size.width &&
                a.top() <= picture.size.height)
        << texts[i].text;
    for (std::size_t j = 0; j < i; ++j) {
      const ViewRect b = textBounds(texts[j]);
      EXPECT_TRUE(a.right() <= b.left || b.right() <= a.left || a.top() <= b.bottom ||
                  b.top() <= a.bottom)
          << texts[i].text << " on " << texts[j].text;
    }
  }
}

}  // namespace tolmer::test
