#include "tables/data_list.h"

#include <cmath>

#include "engine/number_picture.h"
#include "state/model_variables.h"
#include "tables/case_columns.h"
#include "tables/rows_below.h"
#include "tables/table_style.h"

namespace tolmer {
namespace {

constexpr double farOut = 3;  // standard deviations

// A figure that is far out of its variable's others is marked.
CellStyle figureStyle(const AnalysisState& state, int variable, float value, Mark& outlier) {
  CellStyle style = bodyStyle(Align::centre);
  const double spread = state.dDescStat(2, variable);
  if (spread > 0 && std::fabs(value - state.dDescStat(1, variable)) / spread > farOut)
    outlier.put(style);
  return style;
}

void putRow(Sheet& sheet, const AnalysisState& state, int iCase, int variables, Mark& outlier) {
  putCase(sheet, iCase + 1, state, iCase, headingStyle);
  const int left = caseColumns(state);
  for (int j = 1; j <= variables; ++j) {
    const auto at = static_cast<std::size_t>(j);
    const float value = state.sData(iCase, state.iModelCol[at]);
    put(sheet, iCase + 1, left + j, formatNumber(value, state.tVarFormat[at]),
        figureStyle(state, j, value, outlier));
  }
}

}  // namespace

Sheet dataListSheet(const AnalysisState& state) {
  const int variables = listedVariables(state);
  const int cases = variables > 0 ? state.iNumCases : 0;
  Sheet sheet(cases + 1 + rowsBelow, caseColumns(state) + variables);
  putCaseHeads(sheet, state);
  for (int j = 1; j <= variables; ++j)
    put(sheet, 1, caseColumns(state) + j, variableName(state, j), headingStyle(Align::centre));
  Mark outlier{"Outlier", colours::yellow};
  for (int i = 1; i <= cases; ++i) putRow(sheet, state, i, variables, outlier);
  styleRowsBelow(sheet);
  putLegend(sheet, 1, outlier);
  return sheet;
}

frmDataList::frmDataList(Desktop& desktop, AnalysisState& state, DisplayHost& host)
    : TableDisplay(desktop, state, host, "frmDataList", "Data List", "spdDataList") {}

void frmDataList::lowerRows() { lowerRowsBelow(grid(), 6); }

CellPosition frmDataList::frozenCorner() const { return {1, caseColumns(state_)}; }

}  // namespace tolmer
