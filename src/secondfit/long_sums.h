// Sums over the cases, four side by side, since each addition of one sum waits for the addition
// before.
#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <span>

namespace tolmer {

// The sum of value(i) for i below count.
template <class Value>
double longSum(std::size_t count, Value value) {
  std::array<double, 4> sums{};
  std::size_t i = 0;
  for (; i + sums.size() <= count; i += sums.size())
    for (std::size_t j = 0; j < sums.size(); ++j) sums[j] += value(i + j);
  for (; i < count; ++i) sums[0] += value(i);
  return (sums[0] + sums[1]) + (sums[2] + sums[3]);
}

inline double dot(std::span<const double> one, std::span<const double> other) {
  return longSum(one.size(), [&](std::size_t i) { return one[i] * other[i]; });
}

inline double lengthOf(std::span<const double> values) { return std::sqrt(dot(values, values)); }

inline double meanOf(std::span<const double> values) {
  return longSum(values.size(), [&](std::size_t i) { return values[i]; }) /
         static_cast<double>(values.size());
}

}  // namespace tolmer
