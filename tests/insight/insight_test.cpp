// Refits, predictions and comparisons on published data, and the sentences that stand beside them.
#include <cmath>

#include "base/sentence_parts.h"
#include "insight/case_account.h"
#include "insight/influence.h"
#include "insight/insight_tables.h"
#include "insight/model_comparison.h"
#include "insight/prediction.h"
#include "insight/unequal_spread.h"
#include "insight/without_cases.h"
#include "support/regression_data.h"

namespace tolmer {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// The cement data by the places of their predictors.
ModelRecord record(std::vector<Int16> predictors, bool intercept = true) {
  AnalysisState state = cementModel(intercept);
  state.iNumPredictors = static_cast<Int16>(predictors.size());
  for (std::size_t i = 0; i < predictors.size(); ++i) state.iModelCol[i + 2] = predictors[i];
  const ModelData data = heldData(state);
  return *recordOf(state, data, fitSecond(data));
}

// Draper and Smith, appendix 15A: F of X4 in the whole model is 0.04 with 1 and 8 degrees.
TEST(ModelComparison, TellsWhatDroppingAPredictorDid) {
  const ModelRecord whole = record({1, 2, 3, 4});
  const ModelComparison dropped = compareModels(whole, record({1, 2, 3}));
  ASSERT_TRUE(dropped.test);
  EXPECT_NEAR(dropped.test->f, 0.0413, 1e-4);
  EXPECT_EQ(dropped.test->errorDegrees, 8);
  EXPECT_THAT(dropped.sentences,
              ElementsAre("Dropping X4 lowered the largest VIF from 282.5 to 3.3; R-squared fell "
                          "by less than 0.001.",
                          "The data do not show that X4 explains more than chance would (partial "
                          "F = 0.04 with 1 and 8 degrees of freedom, P = 0.844).",
                          "AIC (65.8 and 63.9) and BIC (69.2 and 66.7) prefer the second model: "
                          "lower is better.",
                          "Leaving one out, the first model misses a case by 2.913, the second by "
                          "2.631 (root mean square, in the unit of Y)."));
  const ModelComparison added = compareModels(record({2}), whole);
  EXPECT_THAT(added.sentences[0], testing::StartsWith("Adding X1, X3 and X4 raised R-squared by "));
  EXPECT_THAT(added.sentences[1], HasSubstr("as much as X1, X3 and X4 together do"));
  EXPECT_EQ(added.terms.size(), 5U);
  EXPECT_TRUE(std::isnan(added.terms[2].coefficientBefore.value));
  const ModelComparison other = compareModels(record({1, 2}), record({1, 4}));
  EXPECT_FALSE(other.test);
  EXPECT_THAT(other.sentences[0], HasSubstr("Taking X4 in place of X2 "));
  const ModelComparison through = compareModels(whole, record({1, 2, 3, 4}, false));
  EXPECT_THAT(through.sentences[0],
              HasSubstr("Dropping the intercept left the largest VIF at 282.5."));
  EXPECT_THAT(through.sentences[0], testing::Not(HasSubstr("R-squared")));
  EXPECT_THAT(compareModels(whole, whole).sentences[0], HasSubstr("the same model"));
  ModelHistory fits;
  fits.add(record({1, 2}, false));
  EXPECT_EQ(modelsTable(fits, 0).at(2, 5).text, "NA") << "R-squared, as in the table of the fit";
}

TEST(ModelComparison, HoldsOnlyFitsOfTheSameCasesAgainstEachOther) {
  const ModelRecord whole = record({1, 2, 3, 4});
  AnalysisState state = cementModel();
  EXPECT_TRUE(isOfPresentData(whole, state));
  state.sData(3, 1) += 1;  // edited
  EXPECT_FALSE(isOfPresentData(whole, state));
  const ModelData data = heldData(state);
  const ModelComparison edited = compareModels(whole, *recordOf(state, data, fitSecond(data)));
  EXPECT_FALSE(edited.casesAgree || edited.test);
  EXPECT_THAT(edited.sentences, ElementsAre(HasSubstr("different values of the same variables")));
  ModelHistory history;
  for (int i = 0; i < 2; ++i) history.add(whole);
  history.add(record({1, 2}));
  EXPECT_EQ(history.records().size(), 2U);
}

TEST(WithoutCases, RefitsAndSaysWhatMoved) {
  const ModelData data = heldData(cementModel());
  const SecondFit fit = fitSecond(data);
  const std::vector<int> two = {8, 3, 8};
  const WithoutCases without = refitWithout(data, fit, two);
  EXPECT_EQ(without.fit.cases, 11);
  EXPECT_THAT(without.sentences[0], testing::StartsWith("Without cases 3 and 8 the standard error "
                                                        "falls from 2.446 to "));
  EXPECT_THAT(without.sentences[1], HasSubstr("changes most, from "));
  std::vector<int> many;
  for (int i = 1; i <= 9; ++i) many.push_back(i);
  EXPECT_THAT(refitWithout(data, fit, many).sentences,
              ElementsAre("Without cases 1, 2, 3 and 6 more there is no valid fit: the 4 other "
                          "cases cannot determine all 5 terms."));
  EXPECT_EQ(casesInWords(std::vector<int>{2}, std::vector<std::string>{"", "Ohio"}),
            "case 2 (Ohio)");
}

TEST(Influence, RanksInWordsAlsoWhereCasesAreAlike) {
  const SecondFit fit = fitSecond(heldData(modelOf({{1, 2}, {1, 3}, {5, 4}, {5, 8}, {3, 5}})));
  const auto leverageOf = [&](int iCase) { return measuresOf(fit, iCase)[4].words; };
  EXPECT_EQ(leverageOf(5), "the smallest of 5");
  EXPECT_EQ(leverageOf(1), "the largest of 5, with 3 others");
  // The only case apart from the others decides its coefficient alone.
  const SecondFit held = fitSecond(heldData(modelOf({{0, 2}, {0, 3}, {0, 4}, {0, 8}, {1, 5}})));
  EXPECT_EQ(measuresOf(held, 5)[5].words, "not determined");
  EXPECT_THAT(influentialCases(held), ElementsAre(5));
}

// R 4.2, one lm for each case left out: sqrt(mean(miss^2)).
TEST(Influence, TellsByHowMuchCasesAreMissedThatAreLeftOut) {
  for (const auto& [intercept, error] : {std::pair{true, 2.913450992}, {false, 2.753306629}})
    for (const Extent extent : {Extent::all, Extent::noticeable}) {
      const ModelData data = heldData(cementModel(intercept));
      EXPECT_NEAR(leavingOneOut(data, fitSecond(data, extent)), error, 1e-6);  // of singles
    }
  const ModelData held = heldData(modelOf({{0, 2}, {0, 3}, {0, 4}, {0, 8}, {1, 5}}));
  EXPECT_TRUE(std::isnan(leavingOneOut(held, fitSecond(held, Extent::noticeable))));
}

// Each sentence, of one case, of several, of all.
TEST(CaseAccount, IsTrueOfOneAndOfSeveral) {
  const AnalysisState state;  // without labels
  const auto leveragesOf = [&state](const std::vector<std::vector<float>>& cases) {
    const ModelData data = heldData(modelOf(cases));
    const SecondFit fit = fitSecond(data);
    return onAllCases(state, data, &fit);
  };
  const AllCases one = leveragesOf({{1, 2}, {2, 3}, {3, 4}, {4, 8}, {99, 5}});
  EXPECT_THAT(one.leverages, HasSubstr(" 1 case lies above twice the mean, 0.800, from where on"));
  EXPECT_THAT(one.farthest, ElementsAre(5));
  const AllCases none = leveragesOf({{1, 2}, {2, 3}, {3, 4}, {4, 8}, {5, 5}});
  EXPECT_THAT(none.leverages, HasSubstr(" None lies above twice the mean"));
  EXPECT_THAT(none.farthest, ElementsAre(1));
  EXPECT_THAT(onAllCases(state, {}, nullptr).farthest, testing::IsEmpty());
  EXPECT_THAT(spreadWords({}), testing::StartsWith("Whether the residuals spread evenly cannot"));
}

TEST(Prediction, TellsWhatLiesOutsideTheData) {
  const ModelData data = heldData(cementModel());
  const SecondFit fit = fitSecond(data);
  NewCases cases{{"X4", "X3", "X2", "X1"}, {}};
  for (int i = 0; i < data.cases; ++i)
    cases.rows.push_back({data.at(i, 4), data.at(i, 3), data.at(i, 2), data.at(i, 1)});
  cases.rows.push_back({6, 6, 71, 1});  // each value within its range
  cases.rows.push_back({60, 6, 26, 99});
  cases.rows.push_back({60, 6, std::nan(""), 7});
  const auto predicted = *predictCases(data, fit, cases);
  for (std::size_t i = 0; i < 13; ++i) {
    EXPECT_NEAR(predicted[i].prediction.fit, fit.byCase[i].fitted.value, 1e-9);
    EXPECT_NEAR(predicted[i].prediction.leverage, fit.byCase[i].leverage.value, 1e-9);
    EXPECT_EQ(predicted[i].words, "");
  }
  EXPECT_TRUE(predicted[13].extrapolates && predicted[13].outside.empty());
  EXPECT_THAT(predicted[13].words, HasSubstr("each value lies within its range"));
  EXPECT_THAT(predicted[14].words, HasSubstr("Outside the data: X1 (99; in the data 1 to 21)."));
  EXPECT_EQ(predicted[15].words, "A value is missing.");
  EXPECT_EQ(predictCases(data, fit, {{"X1", "X4"}, {}}).error().text,
            "there is no column \"X2\" and \"X3\", which the model needs");
  EXPECT_NEAR(predictCases(data, fit, casesAtMeans(data))->front().prediction.leverage, 1.0 / 13,
              1e-9);
}

// By its definition: the squared residuals on a constant and the predictors.
TEST(UnequalSpread, IsTheStudentizedTest) {
  for (const bool intercept : {true, false}) {
    const ModelData data = heldData(cementModel(intercept));
    const SecondFit fit = fitSecond(data);
    ModelData squares = heldData(cementModel());
    for (std::size_t i = 0; i < squares.y.size(); ++i)
      squares.y[i] = std::pow(fit.byCase[i].residual.value, 2);
    const SpreadTest test = breuschPagan(data, fit);
    EXPECT_NEAR(test.statistic, 13 * fitSecond(squares).model.rSquared.value, 1e-9);
    EXPECT_EQ(test.degrees, 4);
  }
}

}  // namespace
}  // namespace tolmer
