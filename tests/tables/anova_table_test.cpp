#include "tables/anova_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tables/table_support.h"

namespace tolmer {
namespace {

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

TEST(AnovaTableTest, LargeSumsTakeTheExponentOnlyWhereNothingElseFits) {
  AnalysisState state = bareAnalysis(10, 1, true);
  state.Fit.sSST = 12345678;
  EXPECT_EQ(anovaTable(state).at(4, 2).text, "12345680");
  state.Fit.sSST = 1.23456789e8F;
  EXPECT_EQ(anovaTable(state).at(4, 2).text, "1.235E+8");
}

TEST(AnovaTableTest, AdjustedRSquaredIsFormedInSinglePrecision) {
  AnalysisState state = bareAnalysis(500, 3, true);
  state.Fit.sRSquared = 0.1F;
  const float unexplained = 1.0F - 0.1F;
  const float scaled = unexplained * 499.0F;
  const float expected = 1.0F - scaled / 496.0F;
  EXPECT_EQ(anovaNumbers(state).quality->sAdjRSquared, expected);
  EXPECT_NE(static_cast<double>(expected), 1 - (1 - double{0.1F}) * 499 / 496);
}

}  // namespace
}  // namespace tolmer
