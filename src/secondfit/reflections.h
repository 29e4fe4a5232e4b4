// Matrices for the second fit, in double precision and with twice its digits: Householder
// reflections in blocks and what is made of triangles. For the sources of this folder that do
// matrices alone.
#pragma once

#include <Eigen/Householder>
#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <type_traits>
#include <utility>
#include <vector>

#include "base/double_double.h"
#include "secondfit/second_fit.h"

namespace Eigen {
template <>
struct NumTraits<tolmer::DoubleDouble> : GenericNumTraits<tolmer::DoubleDouble> {
  using Real = tolmer::DoubleDouble;
  using NonInteger = tolmer::DoubleDouble;
  using Literal = double;
  enum { IsComplex = 0, IsInteger = 0, IsSigned = 1, RequireInitialization = 0 };
  enum { ReadCost = 2, AddCost = 20, MulCost = 25 };
  static Real epsilon() { return 0x1p-104; }
  static Real dummy_precision() { return 0x1p-90; }
  static Real highest() { return std::numeric_limits<double>::max(); }
  static Real lowest() { return std::numeric_limits<double>::lowest(); }
};
}  // namespace Eigen

namespace tolmer {

using Eigen::Index;

template <class Real>
using MatrixOf = Eigen::Matrix<Real, Eigen::Dynamic, Eigen::Dynamic>;
template <class Real>
using VectorOf = Eigen::Matrix<Real, Eigen::Dynamic, 1>;

// Half a unit of the last place, with the few that an operation of twice the digits may lose.
template <class Real>
inline constexpr double unit = 0x1p-53;
template <>
inline constexpr double unit<DoubleDouble> = 0x1p-101;

inline double toDouble(double value) { return value; }
inline double toDouble(DoubleDouble value) { return static_cast<double>(value); }

template <class Real>
std::vector<double> toDoubles(const VectorOf<Real>& values) {
  std::vector<double> result(static_cast<std::size_t>(values.size()));
  std::transform(values.begin(), values.end(), result.begin(),
                 [](const Real& value) { return toDouble(value); });
  return result;
}

// Long products in double go through Eigen's kernels; with twice the digits the arithmetic is what
// takes the time, and kernels for it would only take long to compile.
template <class Left, class Right>
auto product(const Left& left, const Right& right) {
  if constexpr (std::is_same_v<typename Left::Scalar, double>)
    return (left * right).eval();
  else
    return left.lazyProduct(right).eval();
}

// Several reflections at once, I - V T V', that act on the rows from `first`. V stands in the
// columns they reduced, down from the diagonal; what stood there of the triangle is kept here.
template <class Real>
struct Reflections {
  Index first = 0;
  MatrixOf<Real> t;
  MatrixOf<Real> triangle;  // (width, width) with zeros below the diagonal

  // Of the matrix that was reduced.
  auto v(const MatrixOf<Real>& reduced) const {
    return reduced.block(first, first, reduced.rows() - first, t.cols());
  }
  template <class V, class Block>
  void towardsTriangle(const V& v, Block&& rows) const {
    take(v, rows, product(t.transpose(), product(v.transpose(), rows)));
  }
  template <class V, class Block>
  void back(const V& v, Block&& rows) const {
    take(v, rows, product(t, product(v.transpose(), rows)));
  }

 private:
  template <class V, class Block, class Weights>
  void take(const V& v, Block& rows, const Weights& weights) const {
    if constexpr (std::is_same_v<Real, double>)
      rows.noalias() -= v * weights;
    else
      rows -= v.lazyProduct(weights);
  }
};

// Reduces a few columns one after another and gathers their reflections.
template <class Real, class Block>
Reflections<Real> reduceColumns(Block block, Index first) {
  const Index rows = block.rows();
  const Index width = block.cols();
  Reflections<Real> result{first, MatrixOf<Real>::Zero(width, width),
                           MatrixOf<Real>::Zero(width, width)};
  VectorOf<Real> workspace(width);
  for (Index j = 0; j < width; ++j) {
    Real length;
    auto column = block.col(j).tail(rows - j);
    column.makeHouseholderInPlace(result.t(j, j), length);
    block.bottomRightCorner(rows - j, width - j - 1)
        .applyHouseholderOnTheLeft(column.tail(rows - j - 1), result.t(j, j), workspace.data());
    column(0) = length;
  }
  for (Index j = 0; j < width; ++j) {
    result.triangle.col(j).head(j + 1) = block.col(j).head(j + 1);
    block.col(j).head(j).setZero();
    block(j, j) = Real(1);
  }
  for (Index j = 1; j < width; ++j) {
    const VectorOf<Real> overlap =
        product(block.bottomRows(rows - j).leftCols(j).transpose(), block.col(j).tail(rows - j));
    result.t.col(j).head(j) = result.t.topLeftCorner(j, j).lazyProduct(overlap) * -result.t(j, j);
  }
  return result;
}

// Reduces the first `columns` columns of a and takes the others along.
template <class Real>
std::vector<Reflections<Real>> triangularise(MatrixOf<Real>& a, Index columns) {
  constexpr Index together = 8;
  std::vector<Reflections<Real>> steps;
  for (Index first = 0; first < columns; first += together) {
    const Index width = std::min(together, columns - first);
    const Index rows = a.rows() - first;
    steps.push_back(reduceColumns<Real>(a.block(first, first, rows, width), first));
    steps.back().towardsTriangle(steps.back().v(a),
                                 a.bottomRightCorner(rows, a.cols() - first - width));
  }
  return steps;
}

// The upper triangle of the reduced columns, and the others down to its last row.
template <class Real>
MatrixOf<Real> triangleOf(const MatrixOf<Real>& reduced,
                          const std::vector<Reflections<Real>>& steps) {
  const Index k = steps.empty() ? 0 : steps.back().first + steps.back().t.cols();
  MatrixOf<Real> result = reduced.topRows(k);
  for (const Reflections<Real>& step : steps) {
    const Index width = step.t.cols();
    result.block(step.first, step.first, width, width) = step.triangle;
    result.middleCols(step.first, width).bottomRows(k - step.first - width).setZero();
  }
  return result;
}

// Brings the square part of a to upper triangular form, the column of greatest remaining length
// next each time; the columns behind it are taken along. Their numbers in `order` go with them.
template <class Real>
void pivot(MatrixOf<Real>& a, std::vector<Index>& order) {
  const Index k = a.rows();
  VectorOf<Real> workspace(a.cols());
  for (Index j = 0; j < k; ++j) {
    Index next = j;
    Real greatest(-1);
    for (Index other = j; other < k; ++other) {
      const Real square = a.col(other).tail(k - j).squaredNorm();
      if (square > greatest) {
        greatest = square;
        next = other;
      }
    }
    a.col(j).swap(a.col(next));
    std::swap(order[j], order[next]);
    Real factor, length;
    VectorOf<Real> column = a.col(j).tail(k - j);
    column.makeHouseholderInPlace(factor, length);
    a.bottomRightCorner(k - j, a.cols() - j - 1)
        .applyHouseholderOnTheLeft(column.tail(k - j - 1), factor, workspace.data());
    a.col(j).tail(k - j).setZero();
    a(j, j) = length;
  }
}

// The inverse of an upper triangular matrix.
template <class Real>
MatrixOf<Real> invertTriangle(const MatrixOf<Real>& upper) {
  const Index k = upper.rows();
  MatrixOf<Real> inverse = MatrixOf<Real>::Zero(k, k);
  for (Index j = 0; j < k; ++j) {
    inverse(j, j) = Real(1) / upper(j, j);
    inverse.col(j).head(j) =
        inverse.topLeftCorner(j, j).lazyProduct(upper.col(j).head(j)) * -inverse(j, j);
  }
  return inverse;
}

inline std::span<const double> columnOf(const ModelData& data, Index term) {
  return data.column(static_cast<int>(term));
}

template <class Real>
VectorOf<Real> shifted(std::span<const double> values, double shift) {
  VectorOf<Real> result(static_cast<Index>(values.size()));
  std::transform(values.begin(), values.end(), result.begin(),
                 [shift](double value) { return Real(value) - Real(shift); });
  return result;
}

template <class Real>
Real sumOfSquaresAboutMean(const VectorOf<Real>& values, const Real& mean) {
  return (values.array() - mean).matrix().squaredNorm();
}

// The terms and then the dependent variable, as in the data, in the coordinates of the triangular
// form, (k + 1, k + 1), which keeps all lengths and angles.
MatrixOf<DoubleDouble> representatives(const ModelData& data);

}  // namespace tolmer
