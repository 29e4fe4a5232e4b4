// The columns that both lists of cases begin with: the number of the case and, where the data have
// labels, its label.
#pragma once

#include "platform/grid/sheet.h"
#include "state/analysis_state.h"

namespace tolmer {

// 1 or 2.
int caseColumns(const AnalysisState& state);
void putCaseHeads(Sheet& sheet, const AnalysisState& state);
// `style` is bodyStyle or headingStyle. 1 <= iCase <= iNumCases.
void putCase(Sheet& sheet, int row, const AnalysisState& state, int iCase,
             CellStyle (*style)(Align));

}  // namespace tolmer
