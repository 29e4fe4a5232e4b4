// The table of estimated coefficients.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "state/analysis_state.h"
#include "tables/table_content.h"

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

// Heads, one row a term, and rows below with the key. A p below .01 is marked, or else one below
// .05, and a VIF above highVIF.
TableContent coefficientTable(const std::vector<TermEstimate>& terms);
// Before an analysis without terms.
TableContent coefficientTable(const AnalysisState& state);

}  // namespace tolmer
