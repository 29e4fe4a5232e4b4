#include "tables/case_columns.h"

#include <string>

#include "tables/table_style.h"

namespace tolmer {

int caseColumns(const AnalysisState& state) { return state.bLabeledData ? 2 : 1; }

void putCaseHeads(Sheet& sheet, const AnalysisState& state) {
  put(sheet, 1, 1, "Case", headingStyle(Align::centre));
  if (state.bLabeledData) put(sheet, 1, 2, state.tLabelColName, headingStyle(Align::left));
}

void putCase(Sheet& sheet, int row, const AnalysisState& state, int iCase,
             CellStyle (*style)(Align)) {
  put(sheet, row, 1, std::to_string(iCase), style(Align::centre));
  if (state.bLabeledData)
    put(sheet, row, 2, state.tCaseLabel[static_cast<std::size_t>(iCase)] + " ", style(Align::left));
}

}  // namespace tolmer
