// Analyses and cells for the tests of tables.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "displays/display_window.h"
#include "engine/pipeline.h"
#include "platform/grid/sheet.h"
#include "support/recorded_messages.h"

namespace tolmer::test {

// Heat of hardening of 13 cements from the shares of four compounds: H. Woods, H. H. Steinour and
// H. R. Starke, Industrial and Engineering Chemistry 24, 1932, 1207-1214.
inline AnalysisState cementAnalysis(bool bUseIntercept) {
  constexpr std::array<std::array<float, 5>, 13> rows = {{{7, 26, 6, 60, 78.5F},
                                                          {1, 29, 15, 52, 74.3F},
                                                          {11, 56, 8, 20, 104.3F},
                                                          {11, 31, 8, 47, 87.6F},
                                                          {7, 52, 6, 33, 95.9F},
                                                          {11, 55, 9, 22, 109.2F},
                                                          {3, 71, 17, 6, 102.7F},
                                                          {1, 31, 22, 44, 72.5F},
                                                          {2, 54, 18, 22, 93.1F},
                                                          {21, 47, 4, 26, 115.9F},
                                                          {1, 40, 23, 34, 83.8F},
                                                          {11, 66, 9, 12, 113.3F},
                                                          {10, 68, 8, 12, 109.4F}}};
  AnalysisState state;
  state.iNumCases = 13;
  state.iNumCols = 5;
  state.iNumPredictors = 4;
  state.bUseIntercept = bUseIntercept;
  RedimDataArrays(state);
  state.tVarName = {"Intercept", "Aluminate", "Silicate tri", "Ferrite", "Silicate di", "Heat"};
  state.iModelCol = {0, 5, 1, 2, 3, 4, 0};
  for (std::size_t i = 0; i < rows.size(); ++i) {
    state.sData(static_cast<int>(i) + 1, 0) = 1;
    for (std::size_t j = 0; j < rows[i].size(); ++j)
      state.sData(static_cast<int>(i) + 1, static_cast<int>(j) + 1) = rows[i][j];
  }
  RedimAnalysisArrays(state);
  RecordedMessages messages;
  ComputeStatistics(state, messages);
  FitRegression(state, messages);
  return state;
}

// A record of fitted numbers without data behind it, all terms alike.
inline AnalysisState bareAnalysis(int iNumCases, int iNumPredictors, bool bUseIntercept) {
  AnalysisState state;
  state.iNumCases = static_cast<Int16>(iNumCases);
  state.iNumCols = static_cast<Int16>(iNumPredictors + 1);
  state.iNumPredictors = static_cast<Int16>(iNumPredictors);
  state.bUseIntercept = bUseIntercept;
  state.iNumTerms = static_cast<Int16>(iNumPredictors + (bUseIntercept ? 1 : 0));
  RedimDataArrays(state);
  RedimAnalysisArrays(state);
  RedimFitArrays(state, state.iNumTerms);
  state.tVarName[0] = "Intercept";
  for (int j = 1; j <= state.iNumCols; ++j)
    state.tVarName[static_cast<std::size_t>(j)] = "X" + std::to_string(j);
  for (int i = 1; i <= state.iNumTerms; ++i) {
    const auto at = static_cast<std::size_t>(i);
    state.iTermCol[at] = static_cast<Int16>(bUseIntercept ? i - 1 : i);
    state.Fit.sCoef[at] = 1;
    state.Fit.sCoefSE[at] = 1;
    state.Fit.sCoefT[at] = 1;
    state.Fit.sCoefP[at] = 0.5F;
  }
  return state;
}

inline std::vector<std::string> rowTexts(const Sheet& sheet, int row) {
  std::vector<std::string> texts;
  for (int col = 1; col <= sheet.cols(); ++col) texts.push_back(sheet.at(row, col).text);
  return texts;
}

class NotedHost : public DisplayHost {
 public:
  void controlsDisabled() override { ++disabled; }
  void controlsEnabled() override {}
  void openDisplayMenu() override { ++menus; }

  int disabled = 0;
  int menus = 0;
};

}  // namespace tolmer::test
