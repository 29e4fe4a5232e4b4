// The table of estimated coefficients.
#pragma once

#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "state/analysis_state.h"
#include "tables/table_content.h"

namespace tolmer {

// One term of the model, in units of the dependent variable per unit of the term. After a failed
// fit all but name and VIF are not numbers.
struct TermEstimate {
  static constexpr float none = std::numeric_limits<float>::quiet_NaN();

  std::string tName;
  float sCoef = none;
  float sCoefSE = none;
  float sCoefT = none;
  float sCoefP = none;
  std::optional<float> sVIF;  // none where a term has no variance inflation
  float sLower = none;        // 95 per cent confidence limits, formed in single precision
  float sUpper = none;
};

// The terms in the order of the fit. While the record is between two fits, those it has room for.
std::vector<TermEstimate> termEstimates(const AnalysisState& state);

// Heads, one row a term, and rows below with the key. A p below .01 is marked, or else one below
// .05, and a VIF above highVIF.
TableContent coefficientTable(const std::vector<TermEstimate>& terms);
// Before an analysis without terms.
TableContent coefficientTable(const AnalysisState& state);

}  // namespace tolmer
