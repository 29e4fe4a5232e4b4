// The inverse of an upper triangular factor, column by column, so that fits that share their first
// terms share these columns. All arrays run from 1.
#pragma once

#include "state/matrix.h"

namespace tolmer {

// A matrix of zeros for the inverse of a factor of iTerms terms: the elements are singles, held as
// doubles because that is how they are used, and there is room for loops that run over the end.
Matrix<double> roomForInverse(int iTerms);

// Columns first..last of the inverse of the upper factor, each element rounded to single, into a
// matrix from roomForInverse. Columns before the first are neither read nor written.
void invertColumns(const Matrix<double>& dFactor, int first, int last, Matrix<double>& dInverse);

}  // namespace tolmer
