// The two tables that list the cases.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "tables/case_lists.h"
#include "tables/table_support.h"

namespace tolmer {
namespace {

using test::backOf;
using test::cementAnalysis;
using test::rowTexts;
using testing::ElementsAre;

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

TEST(DataListTest, AConstantVariableHasNoOutliers) {
  AnalysisState state = valuesOf({7, 7.5F});
  state.dDescStat(2, 2) = 0;
  const TableContent sheet = dataList(state);
  EXPECT_THAT(rowTexts(sheet, 3), ElementsAre("2", "1", "7.500"));
  EXPECT_EQ(backOf(sheet, 3, 3), colours::white);
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

}  // namespace
}  // namespace tolmer
