#include "engine/product_sums.h"

#include <algorithm>

namespace tolmer {

ProductTile tileOfProducts(const Matrix<double>& left, int i, const Matrix<double>& right, int j) {
  ProductTile tile{};
  const int rows = left.lastRow();
  for (int r = 1; r <= rows; ++r) {
    const double* x = left.row(r) + i;
    const double* y = right.row(r) + j;
    for (int a = 0; a < tileSize; ++a)
      for (int b = 0; b < tileSize; ++b) tile[a][b] += x[a] * y[b];
  }
  return tile;
}

Matrix<double> chosenColumns(const Matrix<float>& sX, std::span<const Int16> iCols, int n,
                             int iCount) {
  Matrix<double> columns(n, iCount + spareColumns);
  for (int c = 1; c <= n; ++c)
    for (int i = 1; i <= iCount; ++i) columns(c, i) = sX(c, iCols[i]);
  return columns;
}

Matrix<double> productSums(const Matrix<double>& columns) {
  const int last = columns.lastColumn() - spareColumns;
  Matrix<double> sums(last, last);
  for (int i = 1; i <= last; i += tileSize)
    for (int j = i; j <= last; j += tileSize) {
      const ProductTile tile = tileOfProducts(columns, i, columns, j);
      for (int a = 0; a < tileSize && i + a <= last; ++a)
        for (int b = std::max(i + a - j, 0); b < tileSize && j + b <= last; ++b)
          sums(i + a, j + b) = tile[a][b];
    }
  return sums;
}

}  // namespace tolmer
