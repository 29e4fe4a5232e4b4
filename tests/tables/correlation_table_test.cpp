#include "tables/correlation_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "displays/unattended_host.h"
#include "platform/headless/headless_desktop.h"
#include "tables/table_support.h"

namespace tolmer {
namespace {

using test::backOf;
using test::cementAnalysis;
using test::rowTexts;
using testing::Each;
using testing::ElementsAre;

// All correlations off the diagonal are r but for the first pair.
Sheet sheetOf(int variables, float first, float r, int cases = 13) {
  Correlations numbers{{}, Matrix<float>(variables, variables), cases};
  for (int i = 1; i <= variables; ++i) {
    numbers.tNames.push_back("X");
    for (int j = 1; j <= variables; ++j) numbers.sCorr(i, j) = i + j == 3 ? first : r;
  }
  return correlationSheet(numbers);
}

// The figures are those of R 4.2: cor.
TEST(CorrelationTableTest, Cement) {
  const Sheet sheet = correlationSheet(correlations(cementAnalysis(true)));
  ASSERT_EQ(sheet.rows(), 9);
  EXPECT_THAT(rowTexts(sheet, 1),
              ElementsAre("", "Heat", "Aluminate", "Silicate t", "Ferrite", "Silicate d"));
  EXPECT_THAT(rowTexts(sheet, 4),
              ElementsAre("Silicate tri", "0.8163", "0.2286", "1.0000", "-0.1392", "-0.9730"));
  EXPECT_THAT(rowTexts(sheet, 7), Each(""));
  EXPECT_THAT(rowTexts(sheet, 8), ElementsAre("", "", "p < .01", "", "", ""));
  EXPECT_EQ(backOf(sheet, 8, 3), colours::cyan);
  EXPECT_EQ(backOf(sheet, 8, 5), colours::buttonFace);
  const Colour face = colours::buttonFace, cyan = colours::cyan, white = colours::white;
  const Colour backs[][6] = {{face, face, face, face, face, face},
                             {face, face, cyan, cyan, white, cyan},
                             {face, cyan, face, white, cyan, white},
                             {face, cyan, white, face, white, cyan}};
  for (int row = 1; row <= 4; ++row)
    for (int col = 1; col <= 6; ++col)
      EXPECT_EQ(backOf(sheet, row, col), backs[row - 1][col - 1]) << row << ", " << col;
}

// At 13 cases R gives for r as limits 0.67745 and 0.54906 with the quantiles of n - 1 degrees of
// freedom, which are meant, and 0.68353 and 0.55294 with those of n - 2.
TEST(CorrelationTableTest, Levels) {
  const Colour cyan = colours::cyan, green = colours::green, white = colours::white;
  const std::pair<float, Colour> cases[] = {
      {0.67755F, cyan}, {-0.67755F, cyan}, {0.67735F, green}, {0.54916F, green}, {-0.54896F, white},
      {0, white},       {1, cyan},         {-1, cyan},        {NAN, white}};
  for (const auto& [r, colour] : cases) {
    const Sheet sheet = sheetOf(3, r, 0);
    EXPECT_EQ(backOf(sheet, 2, 3), colour) << r;
    EXPECT_EQ(backOf(sheet, 3, 2), colour) << r;
    EXPECT_EQ(sheet.at(5 + 1, 2).text, colour == cyan ? "p < .01" : "") << r;
    EXPECT_EQ(sheet.at(5 + 1, 4).text, colour == green ? "p < .05" : "") << r;
  }
  EXPECT_EQ(sheetOf(3, -1, 0).at(2, 3).text, "-1.0000");
  EXPECT_EQ(sheetOf(3, NAN, NAN).at(2, 3).text, "NA");
  EXPECT_EQ(sheetOf(3, NAN, NAN).at(2, 2).text, "1.0000");
  EXPECT_EQ(backOf(sheetOf(2, 0.9F, 0, 2), 2, 3), white) << "two cases";
}

TEST(CorrelationTableTest, TheLegendFindsItsColumns) {
  const int columns[][3] = {{3, 2, 4}, {4, 2, 4}, {5, 3, 5}, {12, 3, 5}};
  for (const auto& [variables, first, second] : columns) {
    const Sheet sheet = sheetOf(variables, 0.6F, 0.9F);
    EXPECT_EQ(sheet.at(sheet.rows() - 1, first).text, "p < .01");
    EXPECT_EQ(backOf(sheet, sheet.rows() - 1, first), colours::cyan);
    EXPECT_EQ(sheet.at(sheet.rows() - 1, second).text, "p < .05");
    EXPECT_EQ(backOf(sheet, sheet.rows() - 1, second), colours::green);
  }
  EXPECT_THAT(rowTexts(sheetOf(2, 0.9F, 0), 5), ElementsAre("p < .01", "", ""));
  EXPECT_THAT(rowTexts(sheetOf(2, 0.6F, 0), 5), ElementsAre("", "p < .05", ""));
}

TEST(CorrelationTableTest, RowsBelowAreLowUnlessTheyExplain) {
  HeadlessDesktop desktop;
  UnattendedHost host;
  AnalysisState state = cementAnalysis(true);
  frmCorrMatrix display(desktop, state, host);
  const auto pixelsOf = [&](int row) { return display.grid().rowHeight(row) / twipsPerPixel; };
  display.reportInnerSize({pixels(300), pixels(100)});  // too small: no room is spread
  EXPECT_EQ(pixelsOf(7), std::round(pixelsOf(2) / 5));
  EXPECT_EQ(pixelsOf(8), pixelsOf(2));
  EXPECT_EQ(pixelsOf(9), pixelsOf(7));
  for (int i = 2; i <= 5; ++i)
    for (int j = 1; j < i; ++j) state.sCorr(i, j) = state.sCorr(j, i) = 0;
  display.UpdateDisplay();
  EXPECT_EQ(pixelsOf(8), pixelsOf(7));
  EXPECT_EQ(display.grid().rowAxis().frozen(), 1);
  EXPECT_EQ(display.grid().colAxis().frozen(), 1);
}

}  // namespace
}  // namespace tolmer
