// The correlations among the variables of the model.
#pragma once

#include <string>
#include <vector>

#include "displays/table_display.h"

namespace tolmer {

struct Correlations {
  std::vector<std::string> tNames;  // from element 0, the dependent variable first
  Matrix<float> sCorr;              // from 1; not a number where a variable has no spread
  int iNumCases = 0;
};

Correlations correlations(const AnalysisState& state);

// Heads, one row a variable, and three rows below of which the middle one explains the colours.
// Off the diagonal a correlation whose t, of n - 2 degrees of freedom, lies beyond the quantile for
// n - 1 degrees of freedom is marked: cyan for two-sided p below .01, green for p below .05.
Sheet correlationSheet(const Correlations& numbers);

class frmCorrMatrix : public TableDisplay {
 public:
  frmCorrMatrix(Desktop& desktop, AnalysisState& state, DisplayHost& host);

 protected:
  Sheet content() const override { return correlationSheet(correlations(state_)); }
  void lowerRows() override;
};

}  // namespace tolmer
