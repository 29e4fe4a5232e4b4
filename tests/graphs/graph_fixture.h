// Graphs of made-up residuals.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/pipeline.h"
#include "support/graph_pictures.h"
#include "support/recorded_messages.h"
#include "support/regression_data.h"

namespace tolmer::test {

class GraphFixture : public testing::Test {
 protected:
  RecordedMessages messages;
  AnalysisState state;
};

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
