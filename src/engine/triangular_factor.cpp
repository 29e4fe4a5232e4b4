#include "engine/triangular_factor.h"

#include <cmath>

namespace tolmer {
bool factorRows(Matrix<double>& dCross, Matrix<double>& dSums, int first, int last) {
  for (int i = first; i <= last; ++i) {
    double* row = dCross.row(i);
    if (row[i] <= dSums(i, i)) return false;
    row[i] = std::sqrt(row[i] - dSums(i, i));
    for (int j = i + 1; j <= last; ++j) row[j] = (row[j] - dSums(i, j)) / row[i];
    addRowProducts(dCross, i, last, dSums);
  }
  return true;
}

void addRowProducts(const Matrix<double>& dFactor, int i, int last, Matrix<double>& dSums) {
  const double* row = dFactor.row(i);
  for (int a = i + 1; a <= last; ++a) {
    double* sum = dSums.row(a);
    for (int b = a; b <= last; ++b) sum[b] += row[a] * row[b];
  }
}

}  // namespace tolmer
