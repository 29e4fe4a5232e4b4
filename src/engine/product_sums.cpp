#include "engine/product_sums.h"

#include <algorithm>
#include <array>

namespace tolmer {
namespace {

constexpr int tileSize = 4;

// A tile of the sums, small enough to stay in registers while all cases go by.
using Tile = std::array<std::array<double, tileSize>, tileSize>;

Tile tileOfSums(const Matrix<double>& columns, int i, int j) {
  Tile tile{};
  const int n = columns.lastRow();
  for (int c = 1; c <= n; ++c) {
    const double* left = columns.row(c) + i;
    const double* right = columns.row(c) + j;
    for (int a = 0; a < tileSize; ++a)
      for (int b = 0; b < tileSize; ++b) tile[a][b] += left[a] * right[b];
  }
  return tile;
}

}  // namespace

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
      const Tile tile = tileOfSums(columns, i, j);
      for (int a = 0; a < tileSize && i + a <= last; ++a)
        for (int b = std::max(i + a - j, 0); b < tileSize && j + b <= last; ++b)
          sums(i + a, j + b) = tile[a][b];
    }
  return sums;
}

}  // namespace tolmer
