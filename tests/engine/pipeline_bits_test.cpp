// The engine takes short ways that must not move a bit: every field of the state and every message
// is compared with the same analysis as plain loops.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstring>

#include "engine/pipeline.h"
#include "support/box_texts.h"
#include "support/literal_pipeline.h"
#include "support/regression_data.h"

namespace tolmer {
namespace {

// By bit pattern, since NaN differs from itself; any NaN stands for any other.
template <class Value>
bool sameBits(const Value& a, const Value& b) {
  if constexpr (std::is_floating_point_v<Value>)
    return std::memcmp(&a, &b, sizeof a) == 0 || (a != a && b != b);
  else
    return a == b;
}

template <class Range>
void expectSame(const char* name, const Range& a, const Range& b) {
  ASSERT_EQ(std::size(a), std::size(b)) << name;
  for (std::size_t i = 0; i < std::size(a); ++i)
    ASSERT_TRUE(sameBits(a[i], b[i])) << name << "(" << i << ") " << a[i] << " and " << b[i];
}

template <class Value>
void expectSame(const char* name, const Matrix<Value>& a, const Matrix<Value>& b) {
  ASSERT_EQ(a.lastRow(), b.lastRow()) << name;
  ASSERT_EQ(a.lastColumn(), b.lastColumn()) << name;
  for (int i = 0; i <= a.lastRow(); ++i)
    for (int j = 0; j <= a.lastColumn(); ++j)
      ASSERT_TRUE(sameBits(a(i, j), b(i, j)))
          << name << "(" << i << "," << j << ") " << a(i, j) << " and " << b(i, j);
}

void expectSameFit(const Fit& a, const Fit& b) {
  expectSame("sFitted", a.sFitted, b.sFitted);
  expectSame("sResid", a.sResid, b.sResid);
  expectSame("sCoef", a.sCoef, b.sCoef);
  expectSame("sCoefSE", a.sCoefSE, b.sCoefSE);
  expectSame("sCoefT", a.sCoefT, b.sCoefT);
  expectSame("sCoefP", a.sCoefP, b.sCoefP);
  expectSame("sVarCov", a.sVarCov, b.sVarCov);
  const auto scalars = [](const Fit& f) {
    return std::vector<float>{f.sSSR, f.sSSE, f.sSST,   f.sStdErr,      f.sRSquared,
                              f.sR,   f.sF,   f.sFProb, f.sDurbinWatson};
  };
  expectSame("sums, R-squared, F, Durbin-Watson", scalars(a), scalars(b));
  EXPECT_EQ(a.bSingular, b.bSingular);
}

void expectSameState(const AnalysisState& a, const AnalysisState& b) {
  expectSame("dDescStat", a.dDescStat, b.dDescStat);
  expectSame("tVarFormat", a.tVarFormat, b.tVarFormat);
  expectSame("iVarType", a.iVarType, b.iVarType);
  expectSame("sCorr", a.sCorr, b.sCorr);
  expectSame("sVIF", a.sVIF, b.sVIF);
  expectSame("iTermCol", a.iTermCol, b.iTermCol);
  expectSameFit(a.Fit, b.Fit);
  expectSame("sSortedResid", a.sSortedResid, b.sSortedResid);
  expectSame("tSortedResidLabel", a.tSortedResidLabel, b.tSortedResidLabel);
  EXPECT_EQ(a.iNumTerms, b.iNumTerms);
  EXPECT_EQ(a.iNumResidClasses, b.iNumResidClasses);
  expectSame("sResidClassLimit", a.sResidClassLimit, b.sResidClassLimit);
  expectSame("iResidClassCount", a.iResidClassCount, b.iResidClassCount);
  expectSame("iStdResidClassCount", a.iStdResidClassCount, b.iStdResidClassCount);
  EXPECT_EQ(a.iResidOutside, b.iResidOutside);
  EXPECT_EQ(a.iStdResidOutside, b.iStdResidOutside);
  EXPECT_EQ(a.iCompletedFits, b.iCompletedFits);
}

// Both ways from the same start; the messages of the analysis come back. The label entries are
// filled so that the exchanges of the sort show.
std::vector<std::string> analyseBothWays(AnalysisState state) {
  for (int c = 1; c <= state.iNumCases; ++c) state.tSortedResidLabel[c] = std::to_string(c);
  AnalysisState plain = state;
  MessageLog messages;
  MessageLog plainMessages;
  ComputeStatistics(state, messages);
  literal::ComputeStatistics(plain, plainMessages);
  expectSameState(state, plain);
  FitRegression(state, messages);
  literal::FitRegression(plain, plainMessages);
  expectSameState(state, plain);
  EXPECT_EQ(test::textsOf(messages), test::textsOf(plainMessages));
  for (std::size_t i = 0; i < std::min(messages.boxes().size(), plainMessages.boxes().size());
       ++i) {
    EXPECT_EQ(messages.boxes()[i].box.title, plainMessages.boxes()[i].box.title);
    EXPECT_EQ(messages.boxes()[i].box.icon, plainMessages.boxes()[i].box.icon);
    EXPECT_EQ(messages.boxes()[i].box.buttons, plainMessages.boxes()[i].box.buttons);
  }
  return test::textsOf(messages);
}

template <class Change>
AnalysisState changed(AnalysisState state, Change change) {
  for (int c = 1; c <= state.iNumCases; ++c) change(state, c);
  return state;
}

constexpr const char* singular =
    "Singular variance-covariance matrix. Check X matrix for duplicate variables.";
constexpr const char* tooFew = "Too few cases for this model.";
constexpr const char* zeroError = "Zero standard error in VarCovStats.";

TEST(PipelineBits, AgreeForEveryShapeOfOrdinaryData) {
  const std::pair<int, int> shapes[] = {{3, 1},  {4, 2},  {5, 3},  {12, 1},   {24, 4},
                                        {37, 7}, {50, 8}, {61, 9}, {100, 16}, {120, 17}};
  for (const bool intercept : {true, false})
    for (const auto& [cases, predictors] : shapes)
      for (std::uint64_t seed = 1; seed <= 3; ++seed) {
        SCOPED_TRACE(testing::Message() << cases << " x " << predictors << " seed " << seed);
        EXPECT_TRUE(analyseBothWays(noisyModel(cases, predictors, intercept, seed)).empty());
      }
}

TEST(PipelineBits, AgreeForTheLargestDataSetOfTheEditor) {
  EXPECT_TRUE(analyseBothWays(noisyModel(500, 49)).empty());
}

TEST(PipelineBits, AgreeForWholeNumbersAndDummies) {
  const auto rounded = changed(noisyModel(40, 5), [](AnalysisState& s, int c) {
    for (int j = 1; j <= 6; ++j) s.sData(c, j) = std::floor(s.sData(c, j));
    s.sData(c, 2) = static_cast<float>(c % 2);
    s.sData(c, 4) = static_cast<float>(c % 3);
  });
  EXPECT_TRUE(analyseBothWays(rounded).empty());
}

TEST(PipelineBits, DuplicatePredictorsAreReportedInEachAuxiliaryRegressionAndTheFit) {
  const auto twins =
      changed(noisyModel(30, 4), [](AnalysisState& s, int c) { s.sData(c, 3) = s.sData(c, 1); });
  // Nothing was ever fitted, so the residuals are all 0 and no class holds them.
  EXPECT_EQ(analyseBothWays(twins),
            (std::vector<std::string>{
                singular, singular, singular, singular, singular,
                "Warning: 30 residuals lie outside the histogram classes in FreqTallyDec."}));

  auto sameColumn = noisyModel(30, 4);
  sameColumn.iModelCol[4] = sameColumn.iModelCol[2];
  analyseBothWays(sameColumn);
}

TEST(PipelineBits, ASingularFitKeepsWhatTheLastGoodAuxiliaryRegressionLeft) {
  const auto perfect = changed(noisyModel(30, 3), [](AnalysisState& s, int c) {
    s.sData(c, 1) = static_cast<float>(c);
    s.sData(c, 2) = static_cast<float>(c * c % 17);
    s.sData(c, 4) = 2 * s.sData(c, 1) - 3 * s.sData(c, 2) + 4;
  });
  EXPECT_EQ(analyseBothWays(perfect), std::vector<std::string>{singular});

  const auto firstOnly = changed(noisyModel(30, 5), [](AnalysisState& s, int c) {
    s.sData(c, 5) = s.sData(c, 4) - s.sData(c, 3);
  });
  analyseBothWays(firstOnly);
}

TEST(PipelineBits, AConstantPredictorIsReportedAndTheWorkGoesOn) {
  for (const bool intercept : {true, false}) {
    const auto constant =
        changed(noisyModel(25, 3, intercept), [](AnalysisState& s, int c) { s.sData(c, 2) = 5; });
    const auto texts = analyseBothWays(constant);
    EXPECT_EQ(texts.front(), "Zero range for X2. Check data.");
    EXPECT_EQ(std::count(texts.begin(), texts.end(), singular), intercept ? 4 : 3);
  }
}

TEST(PipelineBits, TooFewCasesAreReportedBeforeAnythingIsFitted) {
  EXPECT_EQ(analyseBothWays(noisyModel(4, 3)).front(), tooFew);
  EXPECT_EQ(analyseBothWays(noisyModel(3, 5)),
            (std::vector<std::string>{
                tooFew, tooFew, tooFew, tooFew, tooFew, tooFew,
                "Warning: 3 residuals lie outside the histogram classes in FreqTallyDec."}));
}

TEST(PipelineBits, VerySmallAndVeryLargeValuesDoNoHarm) {
  for (const float size : {1e-30F, 1e30F, 1e-45F, 3e37F})
    for (const int predictors : {1, 3}) {
      const auto scaled = [&](int first, int last) {
        return changed(noisyModel(20, predictors), [&](AnalysisState& s, int c) {
          for (int j = first; j <= last; ++j)
            s.sData(c, j) = static_cast<float>((double{s.sData(c, j)} - 10 * j) * size);
        });
      };
      SCOPED_TRACE(testing::Message() << size << " with " << predictors);
      analyseBothWays(scaled(1, predictors + 1));
      analyseBothWays(scaled(1, 1));
      analyseBothWays(scaled(predictors + 1, predictors + 1));
    }
}

TEST(PipelineBits, AVanishingStandardErrorIsReportedForEachTerm) {
  // Predictors so large that their variances vanish in single precision.
  const auto large = changed(noisyModel(20, 3), [](AnalysisState& s, int c) {
    for (int j = 1; j <= 3; ++j) s.sData(c, j) *= 1e25F;
  });
  const auto texts = analyseBothWays(large);
  EXPECT_THAT(texts, testing::Contains(zeroError));
}

}  // namespace
}  // namespace tolmer
