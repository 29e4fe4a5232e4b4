#include "engine/seven_digits.h"

#include <array>
#include <cmath>

namespace tolmer {

void SevenDigits::dropZeros() {
  for (; places > 0 && number % 10 == 0; number /= 10) --places;
}

std::optional<SevenDigits> sevenDigits(float a) {
  constexpr std::array<double, 10> tenfold = {1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};
  if (!(a >= 0.001F && a < 1e7F)) return std::nullopt;
  SevenDigits digits{.places = 9};
  double bound = 0.01;
  while (a >= bound) {
    bound *= 10;
    --digits.places;
  }
  // Below 10^7 and a hundred millionth off at most.
  const double scaled = a * tenfold[digits.places];
  digits.number = static_cast<std::int64_t>(scaled);
  const double rest = scaled - static_cast<double>(digits.number);
  if (std::fabs(rest - 0.5) < 1e-6) return std::nullopt;
  if (rest > 0.5) ++digits.number;
  return digits;
}

}  // namespace tolmer
