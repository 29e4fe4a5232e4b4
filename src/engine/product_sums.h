// The sums of products from which cross products and correlations are made.
#pragma once

#include <span>

#include "state/analysis_state.h"
#include "state/matrix.h"

namespace tolmer {

// Columns of zeros behind the last one, so that loops of a fixed width may run over the end.
inline constexpr int spareColumns = 16;

// The chosen columns of a data matrix as doubles, case by case: element (c, i) is sX(c, iCols(i))
// for 1 <= c <= n and 1 <= i <= iCount. Row and column 0 are not used; spareColumns follow.
Matrix<double> chosenColumns(const Matrix<float>& sX, std::span<const Int16> iCols, int n,
                             int iCount);

// Element (i, j) for 1 <= i <= j, of columns with spareColumns behind them, is the sum over all
// rows c >= 1 of columns(c, i) * columns(c, j), added in the order of the rows. What lies below the
// diagonal is 0.
Matrix<double> productSums(const Matrix<double>& columns);

}  // namespace tolmer
