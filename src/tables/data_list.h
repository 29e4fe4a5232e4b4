// The model's data, case by case.
#pragma once

#include "displays/table_display.h"

namespace tolmer {

// Heads, one row a case in the order of the file, and three rows below of which the middle one
// explains the colour. A value more than three standard deviations (divisor n) from the mean of its
// variable is marked yellow; a variable without spread has none.
Sheet dataListSheet(const AnalysisState& state);

class frmDataList : public TableDisplay {
 public:
  frmDataList(Desktop& desktop, AnalysisState& state, DisplayHost& host);

 protected:
  Sheet content() const override { return dataListSheet(state_); }
  void lowerRows() override;
  CellPosition frozenCorner() const override;
};

}  // namespace tolmer
