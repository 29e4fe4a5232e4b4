// The regressions of each predictor on all the others, made together.
//
// Fitted one by one they would repeat nearly all of their arithmetic: the sums of products are the
// same, and so are the rows of the Cholesky factor and the columns of its inverse before the
// predictor that is left out. Only work is shared: each sum adds the same terms in the same order
// as a fit by itself, so the bits are the same.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "state/analysis_state.h"
#include "state/matrix.h"

namespace tolmer {

// K is the number of predictors, which is also that of terms in each fit. Arrays run from 1.
struct AuxiliaryFits {
  std::vector<float> sRSquared;  // (0..K) of each predictor on the others
  // Of the last fit, as they stand when its fitted values are due:
  std::vector<float> sCoef;  // (0..K) coefficients
  Matrix<float> sInverse;    // (0..K+1)^2 inverse of the factor, upper triangle
};

// The K auxiliary regressions on n cases of sX; iVariables(1) is the column of ones and
// iVariables(2..K+1) are the predictors, K at least 2.
//
// Nothing comes back where a fit by itself would not go straight through (a column chosen twice,
// too few cases, a pivot that is not positive, a standard error that may be 0, data that are not
// finite): such fits report, and leave behind more than their R-squared.
std::optional<AuxiliaryFits> fitAuxiliaries(const Matrix<float>& sX,
                                            std::span<const Int16> iVariables, int n);

}  // namespace tolmer
