#include <optional>

#include "secondfit/orthogonal_fit.h"
#include "secondfit/reflections.h"

namespace tolmer {
namespace {

// Finds the columns that follow from others, with twice the digits of a double.
class CombinationFinder {
 public:
  explicit CombinationFinder(const ModelData& data)
      : data_(data), columns_(representatives(data)) {}

  std::vector<Combination> find() {
    std::vector<Combination> found;
    for (Index j = 0; j <= data_.terms; ++j)
      if (const auto combination = combinationOf(j))
        found.push_back(*combination);
      else
        basis_.push_back(j);
    return found;
  }

 private:
  using Real = DoubleDouble;

  std::optional<Combination> combinationOf(Index target) const;
  VectorOf<Real> explain(Index target, const std::vector<Index>& by) const;
  std::vector<Index> withoutIdle(const VectorOf<Real>& weights) const;
  // The greatest difference of a case, in shares of the terms that it is made of; infinite where
  // the differences are no small part of the variation, so that rounding is not what they are.
  double misfit(Index target, const std::vector<Index>& by, const VectorOf<Real>& weights) const;
  const ModelData& data_;
  MatrixOf<Real> columns_;
  std::vector<Index> basis_;  // the columns that follow from none before them
};

// The weights of the columns `by` that come nearest to the target.
VectorOf<DoubleDouble> CombinationFinder::explain(Index target,
                                                  const std::vector<Index>& by) const {
  const auto count = static_cast<Index>(by.size());
  MatrixOf<Real> problem(columns_.rows(), count + 1);
  for (Index j = 0; j < count; ++j) problem.col(j) = columns_.col(by[j]);
  problem.col(count) = columns_.col(target);
  const MatrixOf<Real> triangle = triangleOf<Real>(problem, triangularise<Real>(problem, count));
  return invertTriangle<Real>(triangle.leftCols(count)).lazyProduct(triangle.col(count));
}

std::vector<Index> CombinationFinder::withoutIdle(const VectorOf<Real>& weights) const {
  std::vector<double> lengths;
  for (std::size_t j = 0; j < basis_.size(); ++j)
    lengths.push_back(
        std::abs(toDouble(weights(static_cast<Index>(j)) * columns_.col(basis_[j]).norm())));
  std::vector<Index> rest;
  for (std::size_t j = 0; j < basis_.size(); ++j)
    if (lengths[j] > 1e-6 * *std::max_element(lengths.begin(), lengths.end()))
      rest.push_back(basis_[j]);
  return rest;
}

double CombinationFinder::misfit(Index target, const std::vector<Index>& by,
                                 const VectorOf<Real>& weights) const {
  const VectorOf<Real> values = shifted<Real>(columnOf(data_, target), 0);
  VectorOf<Real> difference = values;
  VectorOf<Real> size = values.cwiseAbs();
  for (std::size_t j = 0; j < by.size(); ++j) {
    const VectorOf<Real> part =
        shifted<Real>(columnOf(data_, by[j]), 0) * weights(static_cast<Index>(j));
    difference -= part;
    size += part.cwiseAbs();
  }
  double greatest = 0;
  for (Index i = 0; i < values.size(); ++i)
    if (size(i) > Real(0)) greatest = std::max(greatest, toDouble(abs(difference(i)) / size(i)));
  const Real mean = values.sum() / Real(data_.cases);
  const double variation = toDouble(sumOfSquaresAboutMean<Real>(values, mean));
  const bool small = toDouble(difference.squaredNorm()) <= 1e-10 * variation || greatest < 1e-20;
  return small ? greatest : std::numeric_limits<double>::infinity();
}

std::optional<Combination> CombinationFinder::combinationOf(Index target) const {
  // The distance from all earlier columns, which is not above that from the basis.
  const auto own = columns_.col(target);
  if (toDouble(own.tail(own.size() - target).norm()) > 1e-5 * toDouble(own.norm())) return {};
  constexpr double single = 0x1p-24;
  std::vector<Index> by = basis_;
  VectorOf<Real> weights = explain(target, by);
  const std::vector<Index> fewer = withoutIdle(weights);
  const VectorOf<Real> fewerWeights = explain(target, fewer);
  double difference = misfit(target, fewer, fewerWeights);
  if (difference <= single) {
    by = fewer;
    weights = fewerWeights;
  } else {
    difference = misfit(target, by, weights);
  }
  if (difference > single) return {};
  Combination result{data_.names[target], target == data_.terms, difference < 1e-20, {}};
  for (std::size_t j = 0; j < by.size(); ++j)
    result.parts.push_back({data_.names[by[j]], toDouble(weights(static_cast<Index>(j)))});
  return result;
}

}  // namespace

std::vector<Combination> findCombinations(const ModelData& data) {
  return CombinationFinder(data).find();
}

}  // namespace tolmer
