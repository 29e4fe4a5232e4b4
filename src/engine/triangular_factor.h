// The Cholesky factor of a least-squares fit, row by row, so that fits that share their first terms
// share these rows. All arrays run from 1.
#pragma once

#include <vector>

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

// Adds to dSums(a, b), for i < a <= b <= last, the product of elements a and b of row i.
void addRowProducts(const Matrix<double>& dFactor, int i, int last, Matrix<double>& dSums);

// Coefficients 1..k from the factor (its column k + 1 is the dependent variable's) and the inverse
// of its first k rows and columns. Each addition is rounded to single.
template <class Value>
void sumCoefficients(const Matrix<double>& dFactor, int k, const Matrix<Value>& inverse,
                     std::vector<float>& sCoef) {
  for (int i = 1; i <= k; ++i) sCoef[i] = 0;
  for (int j = 1; j <= k; ++j)
    for (int i = 1; i <= j; ++i)
      sCoef[i] = static_cast<float>(sCoef[i] + inverse(i, j) * dFactor(j, k + 1));
}

}  // namespace tolmer
