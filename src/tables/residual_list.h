// Observed and fitted values with their residuals, case by case.
#pragma once

#include "displays/table_display.h"

namespace tolmer {

// Heads and one row a case in the order of the file. A residual of more than 2, 3 or 4 standard
// errors is marked cyan, yellow or red and commented ("> 2 SE"); without such a case there is no
// column of comments. Residuals in standard errors are formed in single precision, and not a number
// where the standard error is 0.
Sheet residualListSheet(const AnalysisState& state);

class frmResidList : public TableDisplay {
 public:
  frmResidList(Desktop& desktop, AnalysisState& state, DisplayHost& host);

 protected:
  Sheet content() const override { return residualListSheet(state_); }
  CellPosition frozenCorner() const override;
};

}  // namespace tolmer
