#include "state/analysis_state.h"

#include <gtest/gtest.h>

namespace tolmer {
namespace {

TEST(AnalysisState, ArraysTakeTheBoundsOfDataAndModel) {
  AnalysisState state;
  state.iNumCases = 2;
  state.iNumCols = 7;
  state.iNumPredictors = 5;
  state.sVIF = {9, 9};
  RedimDataArrays(state);
  RedimAnalysisArrays(state);
  RedimFitArrays(state, 6);
  EXPECT_EQ(state.sData.lastRow(), 2);
  EXPECT_EQ(state.sData.lastColumn(), 7);
  EXPECT_EQ(state.iModelCol, std::vector<Int16>(8, 0));
  EXPECT_EQ(state.sVIF, std::vector<float>(6, 0));
  EXPECT_EQ(state.Fit.sCoef.size(), 7U);
  EXPECT_EQ(state.iTermCol.size(), 8U);
  EXPECT_EQ(state.Fit.sVarCov.lastRow(), 7);
  // More model variables than cases: the pictures of all of them still have a place.
  EXPECT_EQ(state.tVarFormat.size(), 7U);
}

}  // namespace
}  // namespace tolmer
