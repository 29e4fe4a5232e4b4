// The two tables that list the cases.
#pragma once

#include "state/analysis_state.h"
#include "tables/table_content.h"

namespace tolmer {

// The model's data: heads, one row a case in the order of the file, and rows below with the key. A
// value more than three standard deviations (divisor n) from the mean of its variable is marked; a
// variable without spread has none.
TableContent dataList(const AnalysisState& state);

// Observed and fitted values with their residuals: heads and one row a case in the order of the
// file. A residual of more than 2, 3 or 4 standard errors is marked and commented ("> 2 SE");
// without such a case there is no column of comments. Residuals in standard errors are formed in
// single precision, and not a number where the standard error is 0. After a failed fit there are
// observed values alone.
TableContent residualList(const AnalysisState& state);

}  // namespace tolmer
