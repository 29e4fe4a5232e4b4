// Analyses and cells for the tests of tables.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "base/message_box.h"
#include "engine/pipeline.h"
#include "support/regression_data.h"
#include "tables/mark_colours.h"
#include "tables/table_content.h"

namespace tolmer::test {

inline AnalysisState cementAnalysis(bool bUseIntercept) {
  AnalysisState state = cementModel(bUseIntercept);
  state.tVarName = {"Intercept", "Aluminate", "Silicate tri", "Ferrite", "Silicate di", "Heat"};
  MessageLog messages;
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
  state.iModelCol[1] = state.iNumCols;
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

inline std::vector<std::string> rowTexts(const TableContent& table, int row) {
  std::vector<std::string> texts;
  for (const TableCell& cell : table.row(row)) texts.push_back(cell.text);
  return texts;
}

inline Colour backOf(const TableContent& table, int row, int col) {
  return tolmer::backOf(table.at(row, col));
}

}  // namespace tolmer::test
