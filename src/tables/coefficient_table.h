// The table of estimated coefficients.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "displays/table_display.h"
#include "state/model_variables.h"

namespace tolmer {

// One term of the model, in units of the dependent variable per unit of the term.
struct TermEstimate {
  std::string tName;
  float sCoef = 0;
  float sCoefSE = 0;
  float sCoefT = 0;
  float sCoefP = 0;
  std::optional<float> sVIF;  // none where a term has no variance inflation
  float sLower = 0;           // 95 per cent confidence limits, formed in single precision
  float sUpper = 0;
};

// The terms in the order of the fit. While the record is between two fits, those it has room for.
std::vector<TermEstimate> termEstimates(const AnalysisState& state);

// Heads, one row a term, and three rows below of which the middle one explains the colours: p below
// .01 cyan, p below .05 green, VIF above 10 red.
Sheet coefficientSheet(const std::vector<TermEstimate>& terms);

class frmEstCoef : public TableDisplay {
 public:
  frmEstCoef(Desktop& desktop, AnalysisState& state, DisplayHost& host);

 protected:
  Sheet content() const override {
    return coefficientSheet(isAnalysed(state_) ? termEstimates(state_)
                                               : std::vector<TermEstimate>());
  }
};

}  // namespace tolmer
