// The tables of the data: the two lists of the cases, description and correlations of variables.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <cmath>

#include "tables/case_lists.h"
#include "tables/correlation_table.h"
#include "tables/description_table.h"
#include "tables/table_support.h"

namespace tolmer {
namespace {

using test::backOf;
using test::bareAnalysis;
using test::cementAnalysis;
using test::rowTexts;
using testing::Each;
using testing::ElementsAre;

// The two tables that list the cases.
void label(AnalysisState& state) {
  state.bLabeledData = true;
  state.tLabelColName = "Batch";
  for (int i = 1; i <= state.iNumCases; ++i) state.tCaseLabel[i] = "No. " + std::to_string(i);
}

// Values of one predictor around a mean of 10 with a standard deviation of 2.
AnalysisState valuesOf(const std::vector<float>& values) {
  std::vector<std::vector<float>> rows;
  for (const float value : values) rows.push_back({value, 1});
  AnalysisState state = modelOf(rows);
  state.dDescStat(1, 2) = 10;
  state.dDescStat(2, 2) = 2;
  state.tVarFormat = {"", "0", "0.000"};
  return state;
}

TEST(DataListTest, LabelledCement) {
  AnalysisState state = cementAnalysis(true);
  label(state);
  const TableContent sheet = dataList(state);
  ASSERT_EQ(sheet.rows(), 17);
  EXPECT_THAT(rowTexts(sheet, 1), ElementsAre("Case", "Batch", "Heat", "Aluminate", "Silicate tri",
                                              "Ferrite", "Silicate di"));
  EXPECT_THAT(rowTexts(sheet, 14), ElementsAre("13", "No. 13 ", "109.4", "10", "68", "8", "12"));
  for (int row = 1; row <= 17; ++row)
    for (int col = 1; col <= 7; ++col) {
      const bool isFrame = row == 1 || row > 14 || col <= 2;
      EXPECT_EQ(backOf(sheet, row, col), isFrame ? colours::buttonFace : colours::white);
      if (row <= 14) {
        EXPECT_EQ(sheet.at(row, col).align, col == 2 ? Align::left : Align::centre);
      }
    }
}

TEST(DataListTest, MarksWhatLiesMoreThanThreeDeviationsOut) {
  const TableContent sheet = dataList(valuesOf({16, 16.001F, 4, 3.999F}));
  const Colour white = colours::white, yellow = colours::yellow;
  const Colour backs[] = {white, yellow, white, yellow};
  for (int i = 0; i < 4; ++i) EXPECT_EQ(backOf(sheet, i + 2, 3), backs[i]) << i;
  EXPECT_EQ(sheet.at(7, 1).text, "Outlier");
  EXPECT_EQ(backOf(sheet, 7, 1), yellow);
  EXPECT_EQ(sheet.at(7, 1).role, CellRole::key);
  EXPECT_EQ(dataList(valuesOf({16, 4})).at(5, 1).text, "");
}

// The figures are those of R 4.2: fitted and resid of lm, and resid / sigma.
TEST(ResidualListTest, Cement) {
  AnalysisState state = cementAnalysis(true);
  const TableContent sheet = residualList(state);
  ASSERT_EQ(sheet.rows(), 14);
  EXPECT_THAT(rowTexts(sheet, 1), ElementsAre("Case", "Y Obs", "Y Est", "Resid", "Std Resid"));
  EXPECT_THAT(rowTexts(sheet, 7), ElementsAre("6", "109.2", "105.275", "3.925", "1.605"));
  label(state);
  const TableContent labelled = residualList(state);
  EXPECT_THAT(rowTexts(labelled, 9),
              ElementsAre("8", "No. 8 ", "72.5", "75.675", "-3.175", "-1.298"));
  EXPECT_EQ(labelled.at(9, 2).align, Align::left);
  for (const int col : {1, 2, 3}) EXPECT_EQ(backOf(labelled, 9, col), colours::white);
}

TEST(ResidualListTest, BandsAndComments) {
  struct Case {
    float residual;
    Colour back;
    const char* comment;
  };
  const Case cases[] = {
      {2, colours::white, ""},           {2.001F, colours::cyan, "> 2 SE"},
      {-2.5F, colours::cyan, "< -2 SE"}, {3, colours::cyan, "> 2 SE"},
      {3.5F, colours::yellow, "> 3 SE"}, {-4, colours::yellow, "< -3 SE"},
      {4.001F, colours::red, "> 4 SE"},  {-9, colours::red, "< -4 SE"},
  };
  AnalysisState state = emptyModel(8, 1);
  state.Fit.sStdErr = 2;
  for (int i = 0; i < 8; ++i) state.Fit.sResid[i + 1] = 2 * cases[i].residual;
  const TableContent sheet = residualList(state);
  EXPECT_EQ(sheet.at(1, 6).text, "Comment");
  for (int i = 0; i < 8; ++i) {
    EXPECT_EQ(backOf(sheet, i + 2, 5), cases[i].back) << i;
    EXPECT_EQ(sheet.at(i + 2, 6).text, cases[i].comment) << i;
    EXPECT_EQ(backOf(sheet, i + 2, 6), colours::white) << i;
  }
}

TEST(ResidualListTest, WithoutAStandardErrorNothingIsMarked) {
  AnalysisState state = emptyModel(3, 1);
  state.Fit.sResid[2] = 5;
  const TableContent sheet = residualList(state);
  EXPECT_EQ(sheet.cols(), 5);
  EXPECT_EQ(sheet.at(3, 5).text, "NA");
  EXPECT_EQ(backOf(sheet, 3, 5), colours::white);
}

TEST(CaseLists, KnowTheirCasesAndWhatStays) {
  AnalysisState state = cementAnalysis(true);
  for (const bool labelled : {false, true}) {
    state.bLabeledData = labelled;
    for (const TableContent& table : {dataList(state), residualList(state)}) {
      EXPECT_EQ(table.fixedColumns, labelled ? 2 : 1);
      EXPECT_EQ(table.caseOf(1), 0);
      EXPECT_EQ(table.caseOf(2), 1);
      EXPECT_EQ(table.caseOf(14), 13);
    }
    EXPECT_EQ(dataList(state).caseOf(15), 0) << "below";
  }
}

TEST(CaseLists, ShowNoCaseThatTheRecordDoesNotHold) {
  AnalysisState state = cementAnalysis(true);
  state.iNumCases = 20;
  RedimDataArrays(state);
  state.iModelCol[1] = 1;
  for (const AnalysisState& record : {state, AnalysisState{}})
    for (const TableContent& table : {dataList(record), residualList(record)}) {
      EXPECT_LE(table.rows(), 4);
      EXPECT_EQ(table.at(1, 1).text, "Case");
    }
}

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
  MessageLog messages;
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
  MessageLog messages;
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
