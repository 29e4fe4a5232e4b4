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

TEST(AnalysisState, TheTableKnowsTheDisplaysThatExist) {
  AnalysisState state;
  InitDisplayTable(state);
  int displays = 0;
  for (int category = 1; category <= 4; ++category)
    for (int index = 1; index <= 6; ++index)
      displays += state.iDisplayState(category, index) == displayHidden;
  EXPECT_EQ(displays, 14);
  EXPECT_EQ(state.iDisplayState(tableDisplays, 6), displayHidden);
  EXPECT_EQ(state.iDisplayState(scatterDisplays, 4), noSuchDisplay);
}

}  // namespace
}  // namespace tolmer
