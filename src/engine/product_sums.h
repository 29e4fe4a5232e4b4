// The sums of products from which cross products and correlations are made.
#pragma once

#include <array>
#include <span>

#include "state/analysis_state.h"
#include "state/matrix.h"

namespace tolmer {

// Columns of zeros behind the last one, so that tiles may run over the end.
inline constexpr int spareColumns = 4;

// Side by side sums, few enough to stay in registers while all rows go by.
inline constexpr int tileSize = 4;
using ProductTile = std::array<std::array<double, tileSize>, tileSize>;

// Element (a, b) is the sum over all rows r >= 1 of left(r, i + a) * right(r, j + b), added in the
// order of the rows.
ProductTile tileOfProducts(const Matrix<double>& left, int i, const Matrix<double>& right, int j);

// The chosen columns of a data matrix as doubles, case by case: element (c, i) is sX(c, iCols(i))
// for 1 <= c <= n and 1 <= i <= iCount. Row and column 0 are not used; spareColumns follow.
Matrix<double> chosenColumns(const Matrix<float>& sX, std::span<const Int16> iCols, int n,
                             int iCount);

// Element (i, j) for 1 <= i <= j, of columns with spareColumns behind them, is the sum over all
// rows c >= 1 of columns(c, i) * columns(c, j), added in the order of the rows. What lies below the
// diagonal is 0.
Matrix<double> productSums(const Matrix<double>& columns);

}  // namespace tolmer
