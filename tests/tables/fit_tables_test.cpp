// The tables of the fit: variance and coefficients.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <cmath>

#include "tables/anova_table.h"
#include "tables/coefficient_table.h"
#include "tables/table_support.h"

namespace tolmer {
namespace {

using test::backOf;
using test::bareAnalysis;
using test::cementAnalysis;
using test::rowTexts;
using testing::Each;
using testing::ElementsAre;

// The figures are those of R 4.2: anova(lm(Heat ~ 1), lm(Heat ~ ...)) and summary.
TEST(AnovaTableTest, CementWithIntercept) {
  const TableContent sheet = anovaTable(cementAnalysis(true));
  ASSERT_EQ(sheet.rows(), 8);
  EXPECT_THAT(rowTexts(sheet, 1),
              ElementsAre("Source", "Sum of Squares", "D.F.", "Mean Square", "F", "P"));
  EXPECT_THAT(rowTexts(sheet, 2),
              ElementsAre("Regression", "2,667.9", "4", "667.0", "111.5", "0.000"));
  EXPECT_THAT(rowTexts(sheet, 3), ElementsAre("Error", "47.9", "8", "5.983", "", ""));
  EXPECT_THAT(rowTexts(sheet, 4), ElementsAre("Total", "2,715.8", "12", "", "", ""));
  EXPECT_THAT(rowTexts(sheet, 5), Each(""));
  EXPECT_THAT(rowTexts(sheet, 6),
              ElementsAre("R-squared", "0.9824", "", "Adj R-sqr", "0.9736", ""));
  EXPECT_THAT(rowTexts(sheet, 7),
              ElementsAre("R (mult corr)", "0.9911", "", "Durbin Watson", "2.05", ""));
  EXPECT_THAT(rowTexts(sheet, 8), ElementsAre("Std Error", "2.4460", "", "Sample size", "13", ""));
}

TEST(AnovaTableTest, WithoutInterceptTheShareExplainedIsNotShown) {
  const TableContent sheet = anovaTable(cementAnalysis(false));
  EXPECT_EQ(sheet.at(2, 3).text, "4");
  EXPECT_EQ(sheet.at(3, 3).text, "9");
  EXPECT_EQ(sheet.at(4, 3).text, "13");
  EXPECT_THAT(rowTexts(sheet, 6), ElementsAre("R-squared", "NA", "", "Adj R-sqr", "NA", ""));
  EXPECT_THAT(rowTexts(sheet, 7),
              ElementsAre("R (mult corr)", "NA", "", "Durbin Watson", "NA", ""));
  EXPECT_THAT(rowTexts(sheet, 8), ElementsAre("Std Error", "2.4177", "", "Sample size", "13", ""));
}

TEST(AnovaTableTest, LooksOfTheCells) {
  const TableContent sheet = anovaTable(cementAnalysis(true));
  for (int row = 1; row <= 8; ++row)
    for (int col = 1; col <= 6; ++col) {
      const TableCell& cell = sheet.at(row, col);
      const bool isFrame = row == 1 || row == 5;
      EXPECT_EQ(isFramed(cell), isFrame);
      EXPECT_EQ(backOf(cell), isFrame ? colours::buttonFace : colours::white);
      const bool isLabel = col == 1 || (col == 4 && row >= 6);
      if (!isFrame && !cell.text.empty()) {
        EXPECT_EQ(cell.role, isLabel ? CellRole::text : CellRole::figure) << row << ", " << col;
        EXPECT_EQ(cell.align, isLabel ? Align::left : Align::right) << row << ", " << col;
      }
    }
}

TEST(AnovaTableTest, DivisorsOfZeroShowNA) {
  AnalysisState alone = bareAnalysis(5, 0, true);
  alone.Fit.sSST = alone.Fit.sSSE = 10;
  alone.Fit.sF = 999.999F;
  const TableContent interceptOnly = anovaTable(alone);
  EXPECT_THAT(rowTexts(interceptOnly, 2),
              ElementsAre("Regression", "0.000", "0", "NA", "1,000.0", "0.000"));
  EXPECT_EQ(interceptOnly.at(3, 4).text, "2.500");

  const TableContent saturated = anovaTable(bareAnalysis(3, 2, true));
  EXPECT_EQ(saturated.at(3, 3).text, "0");
  EXPECT_EQ(saturated.at(3, 4).text, "NA");
  EXPECT_EQ(saturated.at(6, 5).text, "NA");
}

enum Column { name = 1, estimate, stdError, tValue, pValue, vif, lower, upper };

TableContent sheetOf(const AnalysisState& state) { return coefficientTable(termEstimates(state)); }

// One term for each p, or for each VIF where they are given.
TableContent sheetWithP(const std::vector<float>& p) {
  std::vector<TermEstimate> terms;
  for (const float sP : p) terms.push_back({.tName = "X", .sCoefP = sP, .sVIF = 1.0F});
  return coefficientTable(terms);
}

// The figures are those of R 4.2: summary(lm(...)), confint, and 1 / (1 - R-squared) of the
// auxiliary regressions.
TEST(CoefficientTableTest, CementWithIntercept) {
  const TableContent sheet = sheetOf(cementAnalysis(true));
  ASSERT_EQ(sheet.rows(), 9);
  EXPECT_THAT(rowTexts(sheet, 1), ElementsAre("Variable", "Est Coeff", "Std Error", "t", "P", "VIF",
                                              "95% Lower", "95% Upper"));
  EXPECT_THAT(rowTexts(sheet, 2), ElementsAre("Intercept", "62.41", "70.07", "0.89", "0.399", "---",
                                              "-99.18", "223.99"));
  EXPECT_THAT(rowTexts(sheet, 3), ElementsAre("Aluminate", "1.551", "0.7448", "2.08", "0.071",
                                              "38.5", "-0.166", "3.269"));
  // The intercept takes no VIF, names end after ten characters, limits follow the estimate's form.
  EXPECT_THAT(rowTexts(sheet, 4), ElementsAre("Silicate t", "0.5102", "0.7238", "0.70", "0.501",
                                              "254.4", "-1.1589", "2.1792"));
  EXPECT_EQ(sheet.at(8, lower).text, "VIF > 10");
}

TEST(CoefficientTableTest, LooksOfTheCells) {
  const TableContent sheet = sheetWithP({0.5F, 0.5F});
  for (int row = 1; row <= sheet.rows(); ++row)
    for (int col = name; col <= upper; ++col) {
      const bool isFrame = row == 1 || col == name || row > 3;
      EXPECT_EQ(backOf(sheet, row, col), isFrame ? colours::buttonFace : colours::white);
      EXPECT_EQ(isFramed(sheet.at(row, col)), isFrame);
      if (row >= 2 && row <= 3) {
        EXPECT_EQ(sheet.at(row, col).align, col == name ? Align::left : Align::right);
      }
    }
}

TEST(CoefficientTableTest, PIsColouredStrictlyBelowItsLevels) {
  const TableContent sheet = sheetWithP({0.00999F, 0.01F, 0.04999F, 0.05F, NAN});
  EXPECT_EQ(backOf(sheet, 2, pValue), colours::cyan);
  EXPECT_EQ(backOf(sheet, 3, pValue), colours::green);
  EXPECT_EQ(backOf(sheet, 4, pValue), colours::green);
  EXPECT_EQ(backOf(sheet, 5, pValue), colours::white);
  EXPECT_EQ(backOf(sheet, 6, pValue), colours::white);
  EXPECT_EQ(sheet.at(6, pValue).text, "NA");
}

TEST(CoefficientTableTest, TheLegendExplainsTheColoursThatOccur) {
  struct Case {
    std::vector<float> p;
    std::vector<std::string> legend;
    Colour inColumn3;
    Colour inColumn5;
  };
  const Colour face = colours::buttonFace;
  const Case cases[] = {
      {{0.5F, 0.9F}, {"", "", "", "", "", "", "", ""}, face, face},
      {{0.001F, 0.9F}, {"", "", "", "", "p < .01", "", "", ""}, face, colours::cyan},
      {{0.5F, 0.02F}, {"", "", "", "", "p < .05", "", "", ""}, face, colours::green},
      {{0.02F, 0.001F},
       {"", "", "p < .01", "", "p < .05", "", "", ""},
       colours::cyan,
       colours::green},
  };
  for (const Case& one : cases) {
    const TableContent sheet = sheetWithP(one.p);
    const int legend = sheet.rows() - 1;
    EXPECT_EQ(rowTexts(sheet, legend), one.legend);
    EXPECT_EQ(backOf(sheet, legend, stdError), one.inColumn3);
    EXPECT_EQ(backOf(sheet, legend, pValue), one.inColumn5);
    EXPECT_EQ(sheet.at(legend, pValue).role,
              one.inColumn5 == face ? CellRole::frame : CellRole::key);
  }
}

TEST(CoefficientTableTest, VIFFormsAndMarks) {
  std::vector<TermEstimate> terms;
  for (const float sVIF : {10.0F, 10.01F, 999.98F, 999.999F})
    terms.push_back({.tName = "X", .sCoefP = 0.5F, .sVIF = sVIF});
  const TableContent sheet = coefficientTable(terms);
  EXPECT_EQ(sheet.at(2, vif).text, "10.0");
  EXPECT_EQ(backOf(sheet, 2, vif), colours::white);
  EXPECT_EQ(sheet.at(3, vif).text, "10.0");
  EXPECT_EQ(backOf(sheet, 3, vif), colours::red);
  EXPECT_EQ(sheet.at(4, vif).text, "1000.0");
  EXPECT_EQ(sheet.at(5, vif).text, "1000");
  EXPECT_EQ(backOf(sheet, sheet.rows() - 1, lower), colours::red);
}

TEST(CoefficientTableTest, WhichTermsHaveAVIF) {
  EXPECT_EQ(sheetOf(bareAnalysis(10, 1, true)).at(3, vif).text, "---");
  EXPECT_EQ(sheetOf(bareAnalysis(10, 1, false)).at(2, vif).text, "0.0");
  AnalysisState state = bareAnalysis(10, 2, true);
  state.sVIF = {0, 3, 4};
  const TableContent sheet = sheetOf(state);
  EXPECT_EQ(sheet.at(2, vif).text, "---");
  EXPECT_EQ(sheet.at(3, vif).text, "3.0");
  EXPECT_EQ(sheet.at(4, vif).text, "4.0");
}

TEST(CoefficientTableTest, NoDegreesOfFreedomLeaveTheLimitsOpen) {
  const TableContent sheet = sheetOf(bareAnalysis(2, 1, true));
  EXPECT_EQ(sheet.at(2, lower).text, "NA");
  EXPECT_EQ(sheet.at(2, upper).text, "NA");
}

// A resize in the midst of the auxiliary regressions finds arrays of another size.
TEST(CoefficientTableTest, ShowsNoMoreTermsThanTheRecordHolds) {
  AnalysisState state = bareAnalysis(10, 3, true);
  RedimFitArrays(state, 2);
  EXPECT_EQ(termEstimates(state).size(), 2U);
  EXPECT_EQ(sheetOf(AnalysisState{}).rows(), 4);
}

}  // namespace
}  // namespace tolmer
