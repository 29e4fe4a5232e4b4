#include "tables/description_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tables/table_support.h"

namespace tolmer {
namespace {

using test::cementAnalysis;
using test::rowTexts;
using testing::ElementsAre;

// The figures are those of R 4.2: mean, sd, range.
TEST(DescriptionTableTest, Cement) {
  const Sheet sheet = descriptionSheet(variableSummaries(cementAnalysis(true)));
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
      const CellStyle& style = sheet.at(row, col).style;
      EXPECT_EQ(style.back, row == 1 ? colours::buttonFace : colours::white);
      EXPECT_EQ(style.align, col == 1 ? Align::left : Align::centre);
    }
}

TEST(DescriptionTableTest, TypesAndAConstant) {
  RecordedMessages messages;
  AnalysisState state = modelOf({{0, 1, 7, 0.12335F}, {1, 3, 7, 0.5F}, {1, 1, 7, 0.25F}});
  ComputeStatistics(state, messages);
  const Sheet sheet = descriptionSheet(variableSummaries(state));
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
  const Sheet sheet = descriptionSheet(variableSummaries(state));
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
  EXPECT_EQ(descriptionSheet(variableSummaries(AnalysisState{})).rows(), 1);
}

}  // namespace
}  // namespace tolmer
