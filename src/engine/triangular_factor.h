// The two triangular steps of a least-squares fit, in a form that can start in the middle: fits
// that share their first terms share these rows and columns.
#pragma once

#include "state/matrix.h"

namespace tolmer {

// Factors rows first..last of the upper triangle of dCross in place; the rows above are factored
// already, and dSums(i, j) holds the sum of their dCross(m, i) * dCross(m, j) for first <= i <= j.
// dSums goes on being added to. False at the first pivot that is not positive, with the rows from
// there on unfactored.
//
// The sums are kept apart from the cross products because subtracting the products one by one
// would round otherwise than subtracting their sum.
bool factorRows(Matrix<double>& dCross, Matrix<double>& dSums, int first, int last);

// Columns first..last of the inverse of the upper factor, each element rounded to single. Columns
// before the first are neither read nor written.
void invertColumns(const Matrix<double>& dFactor, int first, int last, Matrix<float>& sInverse);

}  // namespace tolmer
