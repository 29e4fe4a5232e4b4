// The seven significant digits of a single, without making a text.
#pragma once

#include <cstdint>
#include <optional>

namespace tolmer {

// The value number / 10^places; number is at most 10^7.
struct SevenDigits {
  std::int64_t number = 0;
  int places = 0;

  // Takes zeros away from the end of the number as far as they are decimals.
  void dropZeros();
};

// a rounded to seven significant digits, for 0.001 <= a < 10000000. Nothing for other values, and
// nothing near a tie, where it takes the exact binary value to tell which way to round.
std::optional<SevenDigits> sevenDigits(float a);

}  // namespace tolmer
