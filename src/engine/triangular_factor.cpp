#include "engine/triangular_factor.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace tolmer {

bool factorRows(Matrix<double>& dCross, Matrix<double>& dSums, int first, int last) {
  for (int i = first; i <= last; ++i) {
    double* row = dCross.row(i);
    if (row[i] <= dSums(i, i)) return false;
    row[i] = std::sqrt(row[i] - dSums(i, i));
    for (int j = i + 1; j <= last; ++j) row[j] = (row[j] - dSums(i, j)) / row[i];
    for (int a = i + 1; a <= last; ++a) {
      double* sum = dSums.row(a);
      for (int b = a; b <= last; ++b) sum[b] += row[a] * row[b];
    }
  }
  return true;
}

void invertColumns(const Matrix<double>& dFactor, int first, int last, Matrix<float>& sInverse) {
  std::vector<double> sums(static_cast<std::size_t>(last) + 1);
  for (int j = last; j >= 1; --j) {
    const double* factor = dFactor.row(j);
    float* inverse = sInverse.row(j);
    // All columns of one row at a time: each sum still adds its terms in the order of m.
    std::fill(sums.begin(), sums.end(), 0.0);
    for (int m = j + 1; m <= last; ++m) {
      const float* below = sInverse.row(m);
      for (int i = std::max(m, first); i <= last; ++i) sums[i] += below[i] * factor[m];
    }
    for (int i = std::max(j + 1, first); i <= last; ++i)
      inverse[i] = static_cast<float>(-sums[i] / factor[j]);
    if (j >= first) inverse[j] = static_cast<float>(1 / factor[j]);
  }
}

}  // namespace tolmer
