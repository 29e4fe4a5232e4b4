#include "tables/coefficient_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "tables/table_support.h"

namespace tolmer {
namespace {

using test::backOf;
using test::bareAnalysis;
using test::cementAnalysis;
using test::rowTexts;
using testing::ElementsAre;

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

TEST(CoefficientTableTest, CementWithoutIntercept) {
  const TableContent sheet = sheetOf(cementAnalysis(false));
  ASSERT_EQ(sheet.rows(), 8);
  EXPECT_THAT(rowTexts(sheet, 2), ElementsAre("Aluminate", "2.193", "0.1853", "11.84", "0.000",
                                              "38.5", "1.774", "2.612"));
  EXPECT_THAT(rowTexts(sheet, 5), ElementsAre("Silicate d", "0.4863", "0.04141", "11.74", "0.000",
                                              "282.5", "0.3926", "0.5800"));
}

TEST(CoefficientTableTest, LimitsAreFormedInSinglePrecision) {
  AnalysisState state = bareAnalysis(10, 1, false);
  state.Fit.sCoef[1] = 16777216;  // here singles lie 2 apart above and 1 apart below
  state.Fit.sCoefSE[1] = 0.5F;
  const TermEstimate term = termEstimates(state).at(0);
  const auto t = 2.2621572F;  // 9 degrees of freedom
  EXPECT_NEAR(term.sUpper - term.sCoef, 2 * std::round(0.5F * t / 2), 0);
  EXPECT_NEAR(term.sCoef - term.sLower, std::round(0.5F * t), 0);
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
