#include "engine/triangular_inverse.h"

#include <algorithm>
#include <array>

namespace tolmer {
namespace {

constexpr int lanes = 8;  // columns of the inverse whose sums go side by side

// The sums over m > j of dInverse(m, i) * factor(m) for the columns i = block .. block + lanes - 1.
// Rows below the diagonal are 0 and add nothing, so all columns of a block go down equally far.
std::array<double, lanes> sumsOfRow(const double* factor, const Matrix<double>& dInverse, int j,
                                    int block, int last) {
  std::array<double, lanes> sums{};
  const int lowest = std::min(block + lanes - 1, last);
  for (int m = j + 1; m <= lowest; ++m) {
    const double* inverse = dInverse.row(m) + block;
    for (int l = 0; l < lanes; ++l) sums[l] += inverse[l] * factor[m];
  }
  return sums;
}

}  // namespace

Matrix<double> roomForInverse(int iTerms) { return Matrix<double>(iTerms, iTerms + lanes); }

void invertColumns(const Matrix<double>& dFactor, int first, int last, Matrix<double>& dInverse) {
  for (int j = last; j >= 1; --j) {
    const double* factor = dFactor.row(j);
    double* inverse = dInverse.row(j);
    for (int block = first; block <= last; block += lanes) {
      const std::array<double, lanes> sums = sumsOfRow(factor, dInverse, j, block, last);
      for (int i = std::max(j + 1, block); i < block + lanes && i <= last; ++i)
        inverse[i] = static_cast<float>(-sums[i - block] / factor[j]);
    }
    if (j >= first) inverse[j] = static_cast<float>(1 / factor[j]);
  }
}

}  // namespace tolmer
