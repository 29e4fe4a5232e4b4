#include "tables/variable_tables.h"

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
using testing::Each;
using testing::ElementsAre;

// The figures are those of R 4.2: mean, sd, range.
TEST(DescriptionTableTest, Cement) {
  const TableContent sheet = descriptionTable(cementAnalysis(true));
  ASSERT_EQ(sheet.rows(), 6);
  EXPECT_THAT(rowTexts(sheet, 1),
              ElementsAre("Variable", "Mean", "S.D.", "Min", "Max", "Range", "Type"));
  EXPECT_THAT(rowTexts(sheet, 2),
              ElementsAre("Heat", "95.42", "15.04", "72.5", "115.9", "Medium", "Decimal"));
  EXPECT_THAT(rowTexts(sheet, 3),
              ElementsAre("Aluminate", "7.462", "5.882", "1", "21", "Medium", "Integer"));
  // The name is whole, and a whole mean has no decimals.
  EXPECT_THAT(rowTexts(sheet, 6),
              ElementsAre("Silicate di", "30", "16.74", "6", "60", "Medium", "Integer"));
  for (int row = 1; row <= 6; ++row)
    for (int col = 1; col <= 7; ++col) {
      EXPECT_EQ(backOf(sheet, row, col), row == 1 ? colours::buttonFace : colours::white);
      EXPECT_EQ(sheet.at(row, col).align, col == 1 ? Align::left : Align::centre);
    }
}

TEST(DescriptionTableTest, TypesAndAConstant) {
  RecordedMessages messages;
  AnalysisState state = modelOf({{0, 1, 7, 0.12335F}, {1, 3, 7, 0.5F}, {1, 1, 7, 0.25F}});
  ComputeStatistics(state, messages);
  const TableContent sheet = descriptionTable(state);
  EXPECT_EQ(sheet.at(3, 7).text, "Binary");
  EXPECT_EQ(sheet.at(4, 7).text, "Integer");
  EXPECT_THAT(rowTexts(sheet, 5), ElementsAre("X3", "7", "0", "7", "7", "Small", "Integer"));
  // As a double it would lie just below the tie, and differ from the list of the data.
  EXPECT_EQ(sheet.at(2, 4).text, "0.1234");
}

// Two values 18.3 apart: 9.15 with divisor n, whose four digits take three decimals, and 12.94 with
// divisor n - 1.
TEST(DescriptionTableTest, TheSampleDeviationTakesTheFormOfTheOther) {
  RecordedMessages messages;
  AnalysisState state = modelOf({{1, 0}, {2, 18.3F}});
  ComputeStatistics(state, messages);
  const TableContent sheet = descriptionTable(state);
  EXPECT_EQ(sheet.at(2, 3).text, "12.940");
}

TEST(DescriptionTableTest, WordsForRanges) {
  const std::pair<double, const char*> cases[] = {
      {0, "Small"},     {double{0.1F}, "Tiny"}, {0.1001, "Small"}, {10, "Small"},
      {10.5, "Medium"}, {10000, "Medium"},      {10001, "Large"},  {100000, "Large"},
      {100001, "Huge"}, {1e-30, "Tiny"},        {-5, "Small"}};
  for (const auto& [dRange, word] : cases) EXPECT_STREQ(rangeWord(dRange), word) << dRange;
}

TEST(DescriptionTableTest, HeadsAloneBeforeTheFirstAnalysis) {
  EXPECT_EQ(descriptionTable(AnalysisState{}).rows(), 1);
}

// All correlations off the diagonal are r but for the first pair.
TableContent sheetOf(int variables, float first, float r, int cases = 13) {
  AnalysisState state = bareAnalysis(cases, variables - 1, true);
  for (int i = 1; i <= variables; ++i)
    for (int j = 1; j <= variables; ++j) state.sCorr(i, j) = i + j == 3 ? first : r;
  return correlationTable(state);
}

// The figures are those of R 4.2: cor.
TEST(CorrelationTableTest, Cement) {
  const TableContent sheet = correlationTable(cementAnalysis(true));
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
    const TableContent sheet = sheetOf(3, r, 0);
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
    const TableContent sheet = sheetOf(variables, 0.6F, 0.9F);
    EXPECT_EQ(sheet.at(sheet.rows() - 1, first).text, "p < .01");
    EXPECT_EQ(backOf(sheet, sheet.rows() - 1, first), colours::cyan);
    EXPECT_EQ(sheet.at(sheet.rows() - 1, second).text, "p < .05");
    EXPECT_EQ(backOf(sheet, sheet.rows() - 1, second), colours::green);
  }
  EXPECT_THAT(rowTexts(sheetOf(2, 0.9F, 0), 5), ElementsAre("p < .01", "", ""));
  EXPECT_THAT(rowTexts(sheetOf(2, 0.6F, 0), 5), ElementsAre("", "p < .05", ""));
}

}  // namespace
}  // namespace tolmer
