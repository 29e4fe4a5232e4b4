// What goes with a fit: the description of the variables before it, the residuals after it, and
// the model in words.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "engine/correlation.h"
#include "engine/fitted_equation.h"
#include "engine/least_squares.h"
#include "engine/pipeline.h"
#include "engine/residual_classes.h"
#include "engine/summary_statistics.h"
#include "engine/variance_inflation.h"
#include "support/box_texts.h"
#include "support/regression_data.h"

namespace tolmer {
namespace {

using testing::ElementsAre;

// One predictor and the dependent variable, which is the case number.
AnalysisState onePredictor(const std::vector<float>& values) {
  AnalysisState state = emptyModel(static_cast<int>(values.size()), 1);
  for (int c = 1; c <= state.iNumCases; ++c) {
    state.sData(c, 1) = values[c - 1];
    state.sData(c, 2) = static_cast<float>(c);
  }
  return state;
}

TEST(ClassifyVariables, KnowsWholeNumbersFractionsAndDummies) {
  const auto kind = [](const std::vector<float>& values) {
    AnalysisState state = onePredictor(values);
    MessageLog messages;
    SummaryStats(state, messages);
    ClassifyVariables(state);
    return state.iVarType[2];
  };
  EXPECT_EQ(kind({0, 1, 1, 0}), dummyVariable);
  EXPECT_EQ(kind({4, 5, 4, 4}), dummyVariable);
  EXPECT_EQ(kind({-1, 0, -1, 0}), dummyVariable);
  EXPECT_EQ(kind({0, 1, 2, 0}), wholeNumbers);
  EXPECT_EQ(kind({3, 3, 3, 3}), wholeNumbers);
  EXPECT_EQ(kind({-4, 1e30F, 7, 0}), wholeNumbers);
  EXPECT_EQ(kind({0, 1, 0.5F, 1}), hasFractions);
  EXPECT_EQ(kind({-1.5F, -0.5F, 1, 1}), hasFractions);
}

TEST(ComputeVIFs, AnRSquaredThatRoundsToOneIsAlmostAThousand) {
  // The predictors differ by less than R-squared shows; the two R-squareds round to either side.
  AnalysisState state = noisyModel(40, 2);
  for (int c = 1; c <= 40; ++c) {
    state.sData(c, 1) = static_cast<float>(1000 * c);
    state.sData(c, 2) = static_cast<float>(1000 * c + (c % 3 == 0 ? 1 : 0));
  }
  MessageLog messages;
  ComputeVIFs(state, messages);
  EXPECT_EQ(state.sVIF[1], 999.9990234375F);
  EXPECT_EQ(state.sVIF[2], 16777216);  // 1 / (1 - the single before 1)
  EXPECT_TRUE(messages.boxes().empty());
}

// A state after a fit with these residuals, in case order.
AnalysisState withResiduals(const std::vector<float>& residuals) {
  AnalysisState state = emptyModel(static_cast<int>(residuals.size()), 1);
  std::copy(residuals.begin(), residuals.end(), state.Fit.sResid.begin() + 1);
  return state;
}

TEST(Residuals, ClassesAreClosedBelowAndHoldTheLargest) {
  AnalysisState state = withResiduals({-2, -1, 0, 1, 2});
  MessageLog messages;
  SortResiduals(state);
  SetResidClasses(state);
  FreqTallyDec(state, messages);
  EXPECT_EQ(state.iNumResidClasses, 4);
  EXPECT_EQ(state.sResidClassLimit[1], -2);
  EXPECT_EQ(state.sResidClassLimit[4], 1);
  EXPECT_EQ(state.sResidClassLimit[5], static_cast<float>(-2 + 4 * 1.0001));
  EXPECT_EQ(std::vector<Int16>(state.iResidClassCount.begin(), state.iResidClassCount.begin() + 6),
            (std::vector<Int16>{0, 1, 1, 1, 2, 0}));
  EXPECT_EQ(state.iResidOutside, 0);
  EXPECT_TRUE(messages.boxes().empty());
}

TEST(Residuals, StandardisedClassesAreUnitStepsAndThreeCountsAsOutside) {
  AnalysisState state = withResiduals({-99, -6.1F, -6, -4, -0.1F, 0, 1.9F, 2, 5.9F, 6, 1e30F});
  state.Fit.sStdErr = 2;
  SortResiduals(state);
  TallyStdResids(state);
  EXPECT_THAT(state.iStdResidClassCount, ElementsAre(0, 2, 1, 1, 1, 2, 1, 1, 2, 0));
  EXPECT_EQ(state.iStdResidOutside, 4);

  state.Fit.sStdErr = 0;
  TallyStdResids(state);
  EXPECT_THAT(state.iStdResidClassCount, testing::Each(0));
  EXPECT_EQ(state.iStdResidOutside, 0);
}

TEST(FittedEquation, WritesEachTermWithItsSignAndPicture) {
  AnalysisState state = emptyModel(10, 3);
  state.iNumTerms = 4;
  state.iTermCol = {0, 0, 1, 2, 3, 4};
  state.Fit.sCoef = {0, 12.3456F, -0.5F, 0, 1234.5F};
  EXPECT_EQ(fittedEquation(state), "Y = 12.35 - 0.5000 X1 - 0 X2 + 1,235 X3. ");
  state.Fit.sCoef[1] = -0.00012345F;
  EXPECT_EQ(fittedEquation(state), "Y =  - .000123 - 0.5000 X1 - 0 X2 + 1,235 X3. ");

  state.bUseIntercept = false;
  state.iNumTerms = 3;
  state.iTermCol = {0, 1, 2, 3, 4};
  state.Fit.sCoef = {0, -2, 0.125F, 3e9F};
  EXPECT_EQ(fittedEquation(state), "Y =  - 2.000 X1 + 0.1250 X2 + ******** X3. ");
}

}  // namespace
}  // namespace tolmer
