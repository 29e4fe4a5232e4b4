// Graphs of made-up residuals.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/message_box.h"
#include "engine/pipeline.h"
#include "support/graph_pictures.h"
#include "support/regression_data.h"

namespace tolmer::test {

class GraphFixture : public testing::Test {
 protected:
  MessageLog messages;
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

}  // namespace tolmer::test
