#include "engine/seven_digits.h"

#include <array>
#include <bit>
#include <cmath>

namespace tolmer {

std::optional<SevenDigits> sevenDigits(float a) {
  constexpr std::array<double, 11> bounds = {1e-3, 1e-2, 1e-1, 1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7};
  constexpr std::array<double, 10> tenfold = {1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};
  if (!(a >= 0.001F && a < 1e7F)) return std::nullopt;
  // By the logarithm of 2, and from -4; the power of ten below a is this one or the next.
  const int binary = static_cast<int>(std::bit_cast<std::uint32_t>(a) >> 23) - 127;
  const int exponent = binary * 1233 >> 12;
  const bool next = a >= bounds[static_cast<std::size_t>(exponent + 4)];
  SevenDigits digits{.places = 6 - exponent - (next ? 1 : 0)};
  // Below 10^7 and a hundred millionth off at most.
  const double scaled = a * tenfold[static_cast<std::size_t>(digits.places)];
  digits.number = static_cast<std::uint32_t>(scaled);
  const double rest = scaled - static_cast<double>(digits.number);
  if (std::fabs(rest - 0.5) < 1e-6) return std::nullopt;
  if (rest > 0.5) ++digits.number;
  return digits;
}

}  // namespace tolmer
