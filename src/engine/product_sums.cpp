#include "engine/product_sums.h"

namespace tolmer {

Matrix<double> chosenColumns(const Matrix<float>& sX, std::span<const Int16> iCols, int n,
                             int iCount) {
  Matrix<double> columns(n, iCount);
  for (int c = 1; c <= n; ++c)
    for (int i = 1; i <= iCount; ++i) columns(c, i) = sX(c, iCols[i]);
  return columns;
}

Matrix<double> productSums(const Matrix<double>& columns) {
  const int last = columns.lastColumn();
  Matrix<double> sums(last, last);
  for (int c = 1; c <= columns.lastRow(); ++c) {
    const double* values = columns.row(c);
    for (int i = 1; i <= last; ++i) {
      double* sum = sums.row(i);
      for (int j = i; j <= last; ++j) sum[j] += values[i] * values[j];
    }
  }
  return sums;
}

}  // namespace tolmer
