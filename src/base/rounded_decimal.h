#pragma once

#include <cstdint>
#include <optional>

namespace tolmer {

// The number is `digits` with the point behind the first one, times ten to the power of exponent.
struct RoundedDecimal {
  std::uint64_t digits;
  int exponent;
};

// A number that is neither small nor large, rounded to so many digits, at most 17, as std::to_chars
// rounds it, but in a tenth of the time. Nothing for numbers below 1/128, from 2 to the 52nd, or
// with more digits left of the point; nothing for a tie, since there are two ways to round that.
std::optional<RoundedDecimal> roundedDecimal(double number, int significant);

}  // namespace tolmer
