#include "advice/interpretation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tables/table_support.h"

namespace tolmer {
namespace {

using test::cementAnalysis;
using testing::HasSubstr;

// Numbers of a fit without data behind them: coefficients of 10, 2, -0.5, 2 and so on, R-squared
// 0.5, standard error 2.5.
AnalysisState fitOf(int cases, int predictors, bool intercept = true) {
  AnalysisState state = emptyModel(cases, predictors, intercept);
  state.iNumTerms = static_cast<Int16>(predictors + (intercept ? 1 : 0));
  RedimFitArrays(state, state.iNumTerms);
  for (int i = 1; i <= state.iNumTerms; ++i) {
    state.iTermCol[i] = static_cast<Int16>(intercept ? i - 1 : i);
    state.Fit.sCoef[i] = 2;
  }
  state.iTermCol[state.iNumTerms + 1] = state.iModelCol[1];
  state.Fit.sCoef[1] = 10;
  if (state.iNumTerms > 2) state.Fit.sCoef[3] = -0.5F;
  state.Fit.sRSquared = 0.5F;
  state.Fit.sStdErr = 2.5F;
  for (int i = 1; i <= predictors + 1; ++i) {
    state.iVarType[i] = hasFractions;
    state.dDescStat(4, i) = 1;
  }
  return state;
}

struct ModelCase {
  const char* name;
  int cases;
  int predictors;
  bool intercept;
  float sRSquared;
  int outliers;
  const char* text;
};

// The adjusted R-squared by hand: 1 - (1 - R-squared) (n - 1) / (n - terms).
TEST(FittedModelTextTest, SaysAllOfIt) {
  const ModelCase cases[] = {
      {"TenCasesAPredictor", 30, 3, true, 0.5F, 0,
       "Y = 10.00 + 2.000 X1 - 0.5000 X2 + 2.000 X3. You have 3 independent variables "
       "and 30 observations in your data set. Your independent variables explain 50.0 "
       "per cent of the variation in the dependent variable (the adjusted R-squared is "
       "44.2 per cent, which is somewhat less). The standard error is 2.500. "},
      {"FourCasesAPredictor", 20, 5, true, 0.5F, 1,
       "Y = 10.00 + 2.000 X1 - 0.5000 X2 + 2.000 X3 + 2.000 X4 + 2.000 X5. You have 5 "
       "independent variables and 20 observations in your data set. You should probably "
       "remove some independent variables (one rule of thumb says that thesample size "
       "should be at least 5 times the number of predictors). Examine the p-values and "
       "consider removing any useless predictors. Your independent variables explain "
       "50.0 per cent of the variation in the dependent variable (the adjusted "
       "R-squared is 32.1 per cent, which is substantially less). The standard error is "
       "2.500. There is one outlier in the residuals."},
      {"FiveCasesAPredictor", 15, 3, true, 0.9F, 12,
       "Y = 10.00 + 2.000 X1 - 0.5000 X2 + 2.000 X3. You have 3 independent variables "
       "and 15 observations in your data set. You may have too many independent "
       "variables (a conservative rule of thumb says that the sample size should be at "
       "least 10 times the number of predictors). Examine the p-values and consider "
       "removing any useless predictors. Your independent variables explain 90.0 per "
       "cent of the variation in the dependent variable (the adjusted R-squared is 87.3 "
       "per cent, which is about the same). The standard error is 2.500. There are 12 "
       "outliers in the residuals."},
      {"NoIntercept", 30, 3, false, 0.5F, 2,
       "Y = 10.00 X1 + 2.000 X2 - 0.5000 X3. You've suppressed the intercept. You have "
       "3 independent variables and 30 observations in your data set. Your independent "
       "variables explain 50.0 per cent of the variation in the dependent variable (the "
       "adjusted R-squared is 46.3 per cent, which is about the same). The standard "
       "error is 2.500. There are 2 outliers in the residuals."},
      {"WorseThanChance", 30, 3, true, 0.05F, 0,
       "Y = 10.00 + 2.000 X1 - 0.5000 X2 + 2.000 X3. You have 3 independent variables "
       "and 30 observations in your data set. Your independent variables explain 5.0 "
       "per cent of the variation in the dependent variable (the adjusted R-squared is "
       "-6.0 per cent). The standard error is 2.500. "},
      {"NoDegreesOfFreedom", 3, 2, true, 1, 0,
       "Y = 10.00 + 2.000 X1 - 0.5000 X2. You have 2 independent variables and 3 "
       "observations in your data set. You should probably remove some independent "
       "variables (one rule of thumb says that thesample size should be at least 5 "
       "times the number of predictors). Examine the p-values and consider removing any "
       "useless predictors. Your independent variables explain 100.0 per cent of the "
       "variation in the dependent variable (the adjusted R-squared is NA per cent). "
       "The standard error is 2.500. "}};
  for (const ModelCase& one : cases) {
    SCOPED_TRACE(one.name);
    AnalysisState state = fitOf(one.cases, one.predictors, one.intercept);
    state.Fit.sRSquared = one.sRSquared;
    state.iStdResidOutside = static_cast<Int16>(one.outliers);
    EXPECT_EQ(fittedModelText(state), one.text);
  }
}

// With 41 cases and 4 predictors the adjusted R-squared is less by (1 - R-squared) / 9.
TEST(FittedModelTextTest, ComparesTheTwoRSquaredAtItsLimits) {
  AnalysisState state = fitOf(41, 4);
  const auto says = [&](float sRSquared) {
    state.Fit.sRSquared = sRSquared;
    const std::string text = fittedModelText(state);
    const auto end = text.find("). The standard error");
    return text.substr(text.rfind(" per cent", end) + 9, end - text.rfind(" per cent", end) - 9);
  };
  EXPECT_EQ(says(0.3699F), ", which is substantially less");
  EXPECT_EQ(says(0.3701F), ", which is somewhat less");
  EXPECT_EQ(says(0.6399F), ", which is somewhat less");
  EXPECT_EQ(says(0.6401F), ", which is about the same");
  EXPECT_EQ(says(0), "");
}

struct Variable {
  VarType type;
  double minimum;
  double maximum;
};

struct ConditioningCase {
  const char* name;
  std::vector<Variable> variables;  // Y, X1, X2 ...
  std::string text;
};

std::string rescale(const std::string& size, const std::string& advice) {
  return "You have some " + size +
         " data values, which can make the estimated coefficients awkward to display. To improve "
         "your data conditioning, you might " +
         advice;
}

const Variable usual{hasFractions, -3, 12};
const Variable large{wholeNumbers, -20000, 5};
const Variable small{hasFractions, -0.05, 0.01};
const char* const reasonable =
    "Your data values appear to have reasonable magnitudes (not too large or small). This helps "
    "ensure accurate computation and coefficients that are not awkward. ";

TEST(DataConditioningTextTest, SaysAllOfIt) {
  const ConditioningCase cases[] = {
      {"Limits", {{wholeNumbers, 0, 10000}, {hasFractions, -double{0.1F}, 0}}, reasonable},
      {"JustAboveTheLimit",
       {{hasFractions, 0, 10000.001F}, usual},
       rescale("very large", "divide Y by 1000. ")},
      {"JustBelowTheLimit",
       {usual, {hasFractions, 0, 0.0999999F}},
       rescale("very small", "multiply X1 by 1000. ")},
      {"Dummies", {usual, {dummyVariable, 0, 0.05}, {dummyVariable, 99999, 100000}}, reasonable},
      {"ZeroThroughout",
       {usual, {wholeNumbers, 0, 0}},
       rescale("very small", "multiply X1 by 1000. ")},
      {"LargeAndSmall",
       {large, usual, small},
       rescale("very large or small", "divide Y by 1000, and multiply X2 by 1000. ")},
      {"TwoSmall",
       {small, small},
       rescale("very small", "multiply Y by 1000, and multiply X1 by 1000. ")},
      {"ThreeLarge",
       {usual, large, large, large},
       rescale("very large", "divide X1 by 1000, divide X2 by 1000, and divide X3 by 1000. ")},
      {"ThreeSmallThenLarge",
       {small, small, large, usual},
       rescale("very large or small",
               "multiply Y by 1000, multiply X1 by 1000, and divide X2 by 1000. ")}};
  for (const ConditioningCase& one : cases) {
    SCOPED_TRACE(one.name);
    const auto& variables = one.variables;
    AnalysisState state = fitOf(30, static_cast<int>(variables.size()) - 1);
    for (std::size_t i = 0; i < variables.size(); ++i) {
      state.iVarType[i + 1] = variables[i].type;
      state.dDescStat(3, static_cast<int>(i) + 1) = variables[i].minimum;
      state.dDescStat(4, static_cast<int>(i) + 1) = variables[i].maximum;
    }
    EXPECT_EQ(dataConditioningText(state), one.text);
  }
}

struct InflationCase {
  const char* name;
  std::vector<float> sVIF;
  std::string text;
};

const char* const noInflation =
    "There is no evidence of serious variance inflation. Since your predictors are not highly "
    "correlated, your estimates should be stable. ";

std::string check(const std::string& evidence) {
  return evidence +
         "Check the VIFs in the table of estimated coefficients. You may want to eliminate one or "
         "more variables with high VIFs, if that action is consistent with your desired model "
         "specification and available data.";
}
std::string overall(const std::string& strength) {
  return check("No VIF exceeds 10 but there is evidence of " + strength +
               "overall variance inflation (sum of VIFs exceeds 10). ");
}
std::string any(const std::string& strength) {
  return check("There is evidence of " + strength +
               "variance inflation (any VIF that exceeds 10). ");
}

TEST(VarianceInflationTextTest, SaysAllOfIt) {
  const InflationCase cases[] = {{"OnePredictor", {0}, noInflation},
                                 {"SumAtItsLimit", {2, 3, 5}, noInflation},
                                 {"SumAbove", {2, 3, 5.001F}, overall("")},
                                 {"LargestAtItsLimit", {10, 10, 10, 10, 10}, overall("")},
                                 {"StrongSum", {10, 10, 10, 10, 10, 1}, overall("strong ")},
                                 {"SevereSum", std::vector<float>(11, 9.5F), overall("severe ")},
                                 {"LargestAbove", {10.01F, 1}, any("")},
                                 {"TheLargestDecides", {50, 50, 50}, any("")},
                                 {"StrongLargest", {1, 50.01F}, any("strong ")},
                                 {"AHundredIsStrong", {100, 1}, any("strong ")},
                                 {"SevereLargest", {999.999F, 999.999F}, any("severe ")}};
  for (const InflationCase& one : cases) {
    SCOPED_TRACE(one.name);
    const auto& sVIF = one.sVIF;
    AnalysisState state = fitOf(200, static_cast<int>(sVIF.size()));
    std::copy(sVIF.begin(), sVIF.end(), state.sVIF.begin() + 1);
    EXPECT_EQ(varianceInflationText(state), one.text);
  }
}

TEST(InterpretationTest, StandsUnderThreeHeadings) {
  const AnalysisState state = cementAnalysis(true);
  EXPECT_EQ(wholeText(interpretation(state)),
            "FITTED MODEL\r\n" + fittedModelText(state) + "\r\n\r\nDATA CONDITIONING\r\n" +
                dataConditioningText(state) + "\r\n\r\nVARIANCE INFLATION\r\n" +
                varianceInflationText(state));
}

TEST(InterpretationTest, SpeaksOfAFailedFitButOfNoneThatIsMissingOrBeingMade) {
  MessageLog messages;
  AnalysisState twins = modelOf({{1, 1, 3}, {2, 2, 5}, {4, 4, 4}, {5, 5, 9}, {7, 7, 8}});
  ComputeStatistics(twins, messages);
  FitRegression(twins, messages);
  ASSERT_TRUE(twins.Fit.bSingular);
  EXPECT_THAT(wholeText(interpretation(twins)), HasSubstr("There is no valid fit. You have 2"));

  EXPECT_THAT(interpretation(AnalysisState{}), testing::IsEmpty());
  EXPECT_THAT(interpretation(emptyModel(20, 2)), testing::IsEmpty());
  AnalysisState refitted = cementAnalysis(true);
  ComputeStatistics(refitted, messages);
  EXPECT_THAT(interpretation(refitted), testing::IsEmpty())
      << "the record holds an auxiliary regression";
}

}  // namespace
}  // namespace tolmer
