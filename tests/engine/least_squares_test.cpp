#include "engine/least_squares.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/message_box.h"
#include "engine/pipeline.h"
#include "support/regression_data.h"

namespace tolmer {
namespace {

MessageLog analyse(AnalysisState& state) {
  MessageLog messages;
  ComputeStatistics(state, messages);
  FitRegression(state, messages);
  return messages;
}

void expectNear(const char* name, const std::vector<float>& values,
                const std::vector<double>& expected, double relative) {
  ASSERT_EQ(values.size(), expected.size() + 1) << name;
  for (std::size_t i = 0; i < expected.size(); ++i)
    EXPECT_NEAR(values[i + 1] / expected[i], 1, relative) << name << " " << i + 1;
}

// R: m <- lm(Heat ~ ., hald); summary(m); pf(); sum(diff(resid(m))^2) / sum(resid(m)^2);
// 1 / (1 - summary(lm(C3A ~ C3S + C4AF + C2S, hald))$r.squared) and so on.
// Single precision of the coefficients of nearly collinear data leaves about five digits.
TEST(MultipleRegression, AgreesWithRForCollinearData) {
  AnalysisState state = cementModel();
  EXPECT_TRUE(analyse(state).boxes().empty());
  const Fit& fit = state.Fit;
  expectNear("coefficients", fit.sCoef,
             {62.405369299917773, 1.551102647508448, 0.510167579684915, 0.101909403579662,
              -0.144061029071015},
             2e-4);
  expectNear("standard errors", fit.sCoefSE,
             {70.070959208534617, 0.744769867130977, 0.723788001835163, 0.754709045051293,
              0.709052063446493},
             2e-6);
  expectNear("t", fit.sCoefT,
             {0.890602469336781, 2.082660316915946, 0.704857746178972, 0.135031379639469,
              -0.203174120065001},
             2e-4);
  expectNear("p", fit.sCoefP,
             {0.3991335633855527, 0.0708216874297197, 0.5009011034742773, 0.8959226905101036,
              0.8440714732918841},
             2e-4);
  expectNear("VIF", state.sVIF,
             {38.4962114906356, 254.423165850919, 46.8683863335737, 282.512864788569}, 1e-4);
  EXPECT_NEAR(fit.sStdErr, 2.44600795559057, 1e-5);
  EXPECT_NEAR(fit.sSSE, 47.863639350499, 1e-3);
  EXPECT_NEAR(fit.sRSquared, 0.98237562040768, 1e-6);
  EXPECT_FLOAT_EQ(fit.sR, std::sqrt(fit.sRSquared));
  EXPECT_NEAR(fit.sF, 111.479171821261, 1e-2);
  EXPECT_NEAR(fit.sFProb, 4.75618174559738e-07, 3e-8);
  EXPECT_NEAR(fit.sDurbinWatson, 2.05259693286049, 1e-4);
  EXPECT_NEAR(state.sCorr(1, 2), 0.730717471965077, 1e-7);
}

// K. A. Brownlee (1965), Statistical Theory and Methodology, 491-500. R: lm(StackLoss ~ . - 1)
TEST(MultipleRegression, AgreesWithRWithoutAnIntercept) {
  AnalysisState state = modelOf(
      {{80, 27, 89, 42}, {80, 27, 88, 37}, {75, 25, 90, 37}, {62, 24, 87, 28}, {62, 22, 87, 18},
       {62, 23, 87, 18}, {62, 24, 93, 19}, {62, 24, 93, 20}, {58, 23, 87, 15}, {58, 18, 80, 14},
       {58, 18, 89, 14}, {58, 17, 88, 13}, {58, 18, 82, 11}, {58, 19, 93, 12}, {50, 18, 89, 8},
       {50, 18, 86, 7},  {50, 19, 72, 8},  {50, 19, 79, 8},  {50, 20, 80, 9},  {56, 20, 82, 15},
       {70, 20, 91, 15}},
      false);
  EXPECT_TRUE(analyse(state).boxes().empty());
  const Fit& fit = state.Fit;
  expectNear("coefficients", fit.sCoef, {0.79676520229442, 1.11142245907610, -0.62499326000319},
             1e-5);
  expectNear("standard errors", fit.sCoefSE,
             {0.1662421764585374, 0.4560010449965826, 0.0847142170630575}, 1e-6);
  expectNear("p", fit.sCoefP, {1.45669988536427e-04, 2.53994234614308e-02, 7.61325467182034e-07},
             0.05);  // the tail areas are good to 3e-8
  expectNear("VIF", state.sVIF, {2.90648362743051, 2.57263238031817, 1.33358746209765}, 1e-5);
  EXPECT_NEAR(fit.sStdErr, 4.06398655821842, 1e-5);
  EXPECT_NEAR(fit.sDurbinWatson, 1.52031241586552, 1e-5);
  // About the mean also here: R's own R-squared (0.965) and F (166) are about zero.
  EXPECT_NEAR(fit.sSST, 2069.238, 1e-3);
  EXPECT_FLOAT_EQ(fit.sRSquared, fit.sSSR / fit.sSST);
  EXPECT_NEAR(fit.sF, (fit.sSSR / 3) / (fit.sSSE / 18), 1e-3);
}

TEST(MultipleRegression, AnInterceptAloneHasNothingToTest) {
  Matrix<float> data(4, 1);
  for (int c = 1; c <= 4; ++c) {
    data(c, 0) = 1;
    data(c, 1) = static_cast<float>(c * c);
  }
  AnalysisState state;
  state.iNumCases = 4;
  RedimAnalysisArrays(state);
  RedimFitArrays(state, 1);
  MessageLog messages;
  MultipleRegression(data, std::vector<Int16>{0, 0, 1}, 1, 4, state.Fit, true, messages);
  EXPECT_TRUE(messages.boxes().empty());
  EXPECT_FLOAT_EQ(state.Fit.sCoef[1], 7.5F);
  EXPECT_NEAR(state.Fit.sSSR, 0, 1e-9);
  EXPECT_EQ(state.Fit.sF, 999.999F);
  EXPECT_TRUE(std::isnan(state.Fit.sFProb));
}

}  // namespace
}  // namespace tolmer
