#include "secondfit/orthogonal_fit.h"

#include <Eigen/Eigenvalues>
#include <numeric>

#include "secondfit/reflections.h"

namespace tolmer {
namespace {

// The largest singular value: its square is an eigenvalue that loses nothing by the squaring, and
// the Lanczos process (Golub and Van Loan, section 10.1) finds the greatest one in few steps.
template <class Real>
double largestSingularValue(const MatrixOf<Real>& matrix) {
  const MatrixOf<double> rounded = matrix.unaryExpr([](const Real& v) { return toDouble(v); });
  const Index most = 3 * rounded.cols() + 20;
  VectorOf<double> diagonal(most), beside(most);
  VectorOf<double> before = VectorOf<double>::Zero(rounded.cols());
  VectorOf<double> now = VectorOf<double>::LinSpaced(rounded.cols(), 1, 2).normalized();
  Eigen::SelfAdjointEigenSolver<MatrixOf<double>> form;
  double found = 0;
  for (Index step = 0; step < most; ++step) {
    VectorOf<double> next = rounded.transpose() * (rounded * now).eval();
    diagonal(step) = now.dot(next);
    next -= diagonal(step) * now;
    if (step > 0) next -= beside(step - 1) * before;
    beside(step) = next.norm();
    const bool isLast = step + 1 == most || !(beside(step) > 1e-15 * diagonal(0));
    if (isLast || (step >= 7 && step % 4 == 3)) {
      form.computeFromTridiagonal(diagonal.head(step + 1), beside.head(step),
                                  Eigen::EigenvaluesOnly);
      const double value = form.eigenvalues()(step);
      if (isLast || !(value > found * (1 + 1e-12))) return std::sqrt(value);
      found = value;
    }
    before = std::exchange(now, next / beside(step));
  }
  return std::sqrt(found);
}

// A number of single precision near the mean. Singles less it are doubles without rounding, unless
// they are vastly smaller.
double nearMean(std::span<const double> values) {
  const auto count = static_cast<Index>(values.size());
  return static_cast<float>(Eigen::Map<const VectorOf<double>>(values.data(), count).mean());
}

// The problem in one precision. Where there is an intercept, predictors and Y are taken from near
// their means, which spans the same space and spares the digits that a great mean would cost; then
// the columns have unit length.
template <class Real>
class Solver {
 public:
  explicit Solver(const ModelData& data);
  OrthogonalFit fit(Extent extent);
  // Otherwise there is no fit.
  bool isFinite() const {
    return std::isfinite(toDouble(length_.sum() + reduced_.col(k_ + 1).norm()));
  }
  // The terms and then the dependent variable, as in the data, in the coordinates of the triangular
  // form, which keeps all lengths and angles.
  MatrixOf<Real> representatives() const;

 private:
  void solve(OrthogonalFit& result) const;
  void addCondition(OrthogonalFit& result, MatrixOf<Real> factor) const;
  void inflate(OrthogonalFit& result) const;
  void project(OrthogonalFit& result);
  void addSums(OrthogonalFit& result) const;
  VectorOf<Real> leverages() const;
  std::vector<double> noticeableLeverages(const OrthogonalFit& result) const;
  MatrixOf<Real> scaledRows(std::span<const Index> cases) const;
  VectorOf<Real> leveragesOf(const MatrixOf<Real>& scaled) const;
  double rounding() const;

  const ModelData& data_;
  const Index n_, k_;
  VectorOf<double> shift_;  // (k + 1) of the terms and of Y
  VectorOf<Real> length_;   // of the shifted columns before the scaling
  MatrixOf<Real> reduced_;  // (n, k + 2) the reflections in place of the scaled terms; ones and Y,
                            // reflected
  std::vector<Reflections<Real>> steps_;
  MatrixOf<Real> triangle_;  // (k, k + 2) of the scaled terms; then the rows of ones and Y
  // A rank below the terms leaves so few digits in double that only the one with twice as many has
  // to know it.
  static constexpr bool findsRank = !std::is_same_v<Real, double>;
  // The triangle, for the rank reduced once more by columns in order of their length; then the ones
  // and Y in the same coordinates, then the way into them where there was a second reduction.
  MatrixOf<Real> pivoted_;  // (k, k + 2) or (k, k + 2 + k)
  std::vector<Index> order_;
  Index rank_ = 0;
  MatrixOf<Real> inverse_;  // (k, k) W with W W' = the inverse of the scaled X'X; of full rank only
  VectorOf<Real> residual_;
};

// Relative error of a column by reflections: in theory n k, in practice its root or less (N. J.
// Higham, Accuracy and Stability of Numerical Algorithms, 2nd edition 2002, theorem 19.4).
template <class Real>
double Solver<Real>::rounding() const {
  return unit<Real> * 2 * (2 * static_cast<double>(k_) + std::sqrt(static_cast<double>(n_)));
}

template <class Real>
Solver<Real>::Solver(const ModelData& data)
    : data_(data), n_(data.cases), k_(data.terms), shift_(k_ + 1), length_(k_) {
  shift_.setZero();
  for (Index j = 1; j <= k_ && data.intercept; ++j) shift_(j) = nearMean(columnOf(data, j));
  reduced_.resize(n_, k_ + 2);
  for (Index j = 0; j < k_; ++j) {
    const auto column = columnOf(data, j);
    const Real shift(shift_(j));
    for (Index i = 0; i < n_; ++i)
      reduced_(i, j) = Real(column[static_cast<std::size_t>(i)]) - shift;
    const Real length = reduced_.col(j).norm();
    length_(j) = length > Real(0) ? length : Real(1);
    reduced_.col(j) *= Real(1) / length_(j);
  }
  reduced_.col(k_).setOnes();
  reduced_.col(k_ + 1) = shifted<Real>(data.y, shift_(k_));
  if (!isFinite()) return;
  steps_ = triangularise<Real>(reduced_, k_);
  triangle_ = triangleOf<Real>(reduced_, steps_);
  pivoted_.resize(k_, k_ + 2 + (findsRank ? k_ : 0));
  pivoted_.leftCols(k_ + 2) = triangle_;
  order_.resize(static_cast<std::size_t>(k_));
  std::iota(order_.begin(), order_.end(), 0);
  if constexpr (findsRank) {
    pivoted_.rightCols(k_).setIdentity();
    pivot<Real>(pivoted_, order_);
  }
  using std::abs;
  const Real least = abs(pivoted_(0, 0)) * Real(rounding());
  while (rank_ < k_ && abs(pivoted_(rank_, rank_)) > least) ++rank_;
}

template <class Real>
MatrixOf<Real> Solver<Real>::representatives() const {
  MatrixOf<Real> result = MatrixOf<Real>::Zero(k_ + 1, k_ + 1);
  for (Index j = 0; j < k_; ++j)
    result.col(j).head(j + 1) = triangle_.col(j).head(j + 1) * length_(j);
  result.col(k_).head(k_) = triangle_.col(k_ + 1);
  result(k_, k_) = reduced_.col(k_ + 1).tail(n_ - k_).norm();
  for (Index j = 1; j <= k_; ++j) result(0, j) += result(0, 0) * Real(shift_(j));
  return result;
}

template <class Real>
OrthogonalFit Solver<Real>::fit(Extent extent) {
  OrthogonalFit result;
  result.rank = static_cast<int>(rank_);
  result.condition = std::numeric_limits<double>::infinity();
  result.extended = !std::is_same_v<Real, double>;
  result.rounding = rounding();
  if (rank_ == k_) {
    const MatrixOf<Real> upper = pivoted_.leftCols(k_);
    const MatrixOf<Real> inverse = invertTriangle<Real>(upper);
    inverse_.resize(k_, k_);
    for (Index i = 0; i < k_; ++i) inverse_.row(order_[i]) = inverse.row(i);
    solve(result);
    inflate(result);
  }
  project(result);
  addSums(result);
  if (extent == Extent::all || (extent == Extent::noticeable && (findsRank || rank_ < k_)))
    result.leverage = toDoubles<Real>(leverages());
  else if (extent == Extent::noticeable)
    result.leverage = noticeableLeverages(result);
  return result;
}

// Back from shifted and scaled terms: the intercept takes up what the shifts left out.
template <class Real>
void Solver<Real>::solve(OrthogonalFit& result) const {
  VectorOf<Real> weights = inverse_.lazyProduct(pivoted_.col(k_ + 1));
  const VectorOf<Real> roots = inverse_.rowwise().norm();
  const Real rest = reduced_.col(k_ + 1).tail(n_ - k_).norm();
  const double sumOfRoots = toDouble(roots.sum());
  result.spread = result.rounding * sumOfRoots;
  result.lengthY = toDouble(reduced_.col(k_ + 1).norm());
  result.residualError =
      result.rounding *
      (result.lengthY + toDouble(weights.template lpNorm<1>()) + toDouble(rest) * sumOfRoots);
  weights = weights.cwiseQuotient(length_);
  VectorOf<Real> bounds = roots.cwiseQuotient(length_);
  MatrixOf<Real> factor = inverse_;
  for (Index j = 0; j < k_; ++j) factor.row(j) /= length_(j);
  for (Index j = 1; j < k_; ++j) {
    const Real shift(shift_(j));
    weights(0) -= shift * weights(j);
    factor.row(0) -= shift * factor.row(j);
    bounds(0) += Real(std::abs(shift_(j))) * bounds(j);
  }
  weights(0) += Real(shift_(k_));
  result.coefficient = toDoubles<Real>(weights);
  result.rootDiagonal = toDoubles<Real>(factor.rowwise().norm());
  result.amplification = toDoubles<Real>(bounds);
  result.inverseFactor = toDoubles<Real>(factor.reshaped());
  addCondition(result, factor);
}

// Of the columns as they are, not shifted.
template <class Real>
void Solver<Real>::addCondition(OrthogonalFit& result, MatrixOf<Real> factor) const {
  MatrixOf<Real> columns = representatives().topLeftCorner(k_, k_);
  for (Index j = 0; j < k_; ++j) {
    const Real length = columns.col(j).norm();
    columns.col(j) /= length;
    factor.row(j) *= length;
  }
  result.condition =
      largestSingularValue<Real>(columns) * largestSingularValue<Real>(factor.transpose());
}

// With an intercept the diagonal of the inverse tells the share of each predictor that the others
// leave. Without one the column of ones joins the terms, by the formula for the inverse of a
// matrix with one row and column more.
template <class Real>
void Solver<Real>::inflate(OrthogonalFit& result) const {
  VectorOf<Real> diagonal = inverse_.rowwise().squaredNorm();
  if (!data_.intercept) {
    const VectorOf<Real> weights = inverse_.lazyProduct(pivoted_.col(k_));
    const Real left = reduced_.col(k_).tail(n_ - k_).squaredNorm();
    const Real none = Real(rounding()) * Real(rounding()) * Real(static_cast<double>(n_));
    for (Index j = 0; j < k_; ++j)
      if (left > none ||
          toDouble(weights(j) * weights(j)) > 1e-16 * toDouble(weights.squaredNorm()))
        diagonal(j) += left > none ? Real(weights(j) * weights(j) / left)
                                   : Real(std::numeric_limits<double>::infinity());
  }
  const auto ones = triangle_.col(k_);
  const Real tail = reduced_.col(k_).tail(n_ - k_).squaredNorm();
  for (Index j = 0; j < k_; ++j) {
    const auto column = triangle_.col(j);
    const Real mean = column.dot(ones) / Real(static_cast<double>(n_));
    const Real spread = (column - mean * ones).squaredNorm() + mean * mean * tail;
    result.inflation.push_back(toDouble(diagonal(j) * spread));
  }
}

// The squared lengths of the rows of an orthogonal basis of the terms that are determined.
template <class Real>
VectorOf<Real> Solver<Real>::leverages() const {
  VectorOf<Real> result(n_);
  if (rank_ == k_) {
    constexpr Index together = 64;  // stays in the cache
    std::vector<Index> cases(static_cast<std::size_t>(n_));
    std::iota(cases.begin(), cases.end(), 0);
    for (Index first = 0; first < n_; first += together) {
      const Index rows = std::min(together, n_ - first);
      result.segment(first, rows) = leveragesOf(scaledRows(std::span(cases).subspan(
          static_cast<std::size_t>(first), static_cast<std::size_t>(rows))));
    }
    return result;
  }
  MatrixOf<Real> rows = MatrixOf<Real>::Zero(n_, rank_);
  rows.topRows(k_) = pivoted_.rightCols(k_).topRows(rank_).transpose();
  for (auto step = steps_.rbegin(); step != steps_.rend(); ++step)
    step->back(step->v(reduced_), rows.bottomRows(n_ - step->first));
  return rows.rowwise().squaredNorm();
}

template <class Real>
MatrixOf<Real> Solver<Real>::scaledRows(std::span<const Index> cases) const {
  MatrixOf<Real> scaled(static_cast<Index>(cases.size()), k_);
  for (Index j = 0; j < k_; ++j) {
    const auto column = columnOf(data_, j);
    const Real shift(shift_(j));
    const Real scale = Real(1) / length_(j);
    for (std::size_t i = 0; i < cases.size(); ++i)
      scaled(static_cast<Index>(i), j) =
          (Real(column[static_cast<std::size_t>(cases[i])]) - shift) * scale;
  }
  return scaled;
}

// The inverse of a triangle that was not pivoted is one, too: a few columns need few terms.
template <class Real>
VectorOf<Real> Solver<Real>::leveragesOf(const MatrixOf<Real>& scaled) const {
  const Index width = findsRank ? k_ : std::min<Index>(k_, 16);
  MatrixOf<Real> basis(scaled.rows(), k_);
  for (Index at = 0; at < k_; at += width) {
    const Index last = std::min(k_, at + width);
    basis.middleCols(at, last - at) =
        product(scaled.leftCols(last), inverse_.block(0, at, last, last - at));
  }
  return basis.rowwise().squaredNorm();
}

// A leverage is at most the squared length of the scaled row times the largest eigenvalue of the
// inverse; Cook's distance, e^2 h / (s^2 k (1 - h)^2), tells the least that is noticeable. Those
// below are not numbers.
template <class Real>
std::vector<double> Solver<Real>::noticeableLeverages(const OrthogonalFit& result) const {
  // By the Frobenius norm of the fourth power.
  const MatrixOf<Real> inverse = product(inverse_.transpose(), inverse_);
  const MatrixOf<Real> square = product(inverse, inverse);
  const double largest = std::sqrt(std::sqrt(toDouble(product(square, square).norm())));
  const double mean = result.sumResidual / static_cast<double>(n_ - k_);
  VectorOf<double> lengths = VectorOf<double>::Zero(n_);
  for (Index j = 0; j < k_; ++j) {
    const double scale = 1 / toDouble(length_(j));
    lengths +=
        ((Eigen::Map<const VectorOf<double>>(columnOf(data_, j).data(), n_).array() - shift_(j)) *
         scale)
            .matrix()
            .cwiseAbs2();
  }
  std::vector<Index> cases;
  for (Index i = 0; i < n_; ++i) {
    const double square = result.residual[i] * result.residual[i];
    const double odds = square / (noticeableDistance * static_cast<double>(k_) * mean);
    const double least = 1 + odds / 2 - std::sqrt(odds + odds * odds / 4);
    if (!(largest * lengths(i) < (1 - 1e-6) * least)) cases.push_back(i);
  }
  const VectorOf<Real> found = leveragesOf(scaledRows(cases));
  std::vector<double> leverages(static_cast<std::size_t>(n_),
                                std::numeric_limits<double>::quiet_NaN());
  for (std::size_t i = 0; i < cases.size(); ++i)
    leverages[static_cast<std::size_t>(cases[i])] = toDouble(found(static_cast<Index>(i)));
  return leverages;
}

template <class Real>
void Solver<Real>::project(OrthogonalFit& result) {
  residual_ = reduced_.col(k_ + 1);
  residual_.head(k_) = pivoted_.rightCols(k_)
                           .bottomRows(k_ - rank_)
                           .transpose()
                           .lazyProduct(pivoted_.col(k_ + 1).tail(k_ - rank_));
  for (auto step = steps_.rbegin(); step != steps_.rend(); ++step)
    step->back(step->v(reduced_), residual_.tail(n_ - step->first));
  result.residual = toDoubles<Real>(residual_);
}

template <class Real>
void Solver<Real>::addSums(OrthogonalFit& result) const {
  const VectorOf<Real> y = shifted<Real>(data_.y, shift_(k_));
  const VectorOf<Real> fitted = y - residual_;
  const Real mean = y.sum() / Real(static_cast<double>(n_));
  result.fitted = toDoubles<Real>((fitted.array() + Real(shift_(k_))).matrix());
  result.sumFitted = toDouble(sumOfSquaresAboutMean<Real>(fitted, mean));
  result.sumResidual = toDouble(residual_.squaredNorm());
  result.sumTotal = toDouble(sumOfSquaresAboutMean<Real>(y, mean));
  result.sumSteps = toDouble((residual_.tail(n_ - 1) - residual_.head(n_ - 1)).squaredNorm());
}

// Whether the bounds leave nine digits to standard errors and residuals, and six to a coefficient,
// which may be small beside its standard error.
bool enoughDigits(const OrthogonalFit& fit, int terms) {
  constexpr double enough = 1e-9;
  const double residualLength = std::sqrt(fit.sumResidual);
  const double root = std::sqrt(static_cast<double>(fit.residual.size()));
  if (fit.rank < terms || !(fit.spread < enough) ||
      !(fit.residualError * root < enough * residualLength))
    return false;
  for (std::size_t j = 0; j < fit.coefficient.size(); ++j)
    if (fit.amplification[j] * fit.residualError > 1e-6 * std::abs(fit.coefficient[j]))
      return false;
  return true;
}

}  // namespace

OrthogonalFit fitOrthogonally(const ModelData& data, Extent extent) {
  Eigen::setCpuCacheSizes(32768, 262144, 2097152);  // the same order of sums on every machine
  Solver<double> solver(data);
  if (!solver.isFinite()) return {};
  OrthogonalFit fit = solver.fit(extent);
  if (enoughDigits(fit, data.terms)) return fit;
  return Solver<DoubleDouble>(data).fit(extent);
}

MatrixOf<DoubleDouble> representatives(const ModelData& data) {
  return Solver<DoubleDouble>(data).representatives();
}

}  // namespace tolmer
