// The residuals of the main fit in rising order, and the classes of the two residual histograms.
// Each procedure works on AnalysisState.
#pragma once

#include "base/message_box.h"
#include "state/analysis_state.h"

namespace tolmer {

// sSortedResid ascending by a Shell sort, tSortedResidLabel swapped along. Where a residual is NaN
// the order is whatever the exchanges leave.
void SortResiduals(AnalysisState& state);

// iNumResidClasses from the number of cases (at least 4) and sResidClassLimit, equally wide classes
// from the least residual to just beyond the largest.
void SetResidClasses(AnalysisState& state);

// The class of a residual among sResidClassLimit, 0 for one outside of all: classes are closed
// below and open above.
int residClassOf(const AnalysisState& state, float sResid);
// Among the eight classes of TallyStdResids; 0 for one without a standardised value.
int stdResidClassOf(const AnalysisState& state, float sResid);

// iResidClassCount and iResidOutside. Residuals outside all classes are reported.
void FreqTallyDec(AnalysisState& state, MessagePort& messages);

// iStdResidClassCount and iStdResidOutside: residuals in units of Fit.sStdErr, class 1 below -3,
// 2 to 7 the unit steps from -3 to 3, class 8 from 3 on. A residual without a standardised value
// (zero or undefined standard error) counts nowhere.
void TallyStdResids(AnalysisState& state);

}  // namespace tolmer
