// The seven significant digits of a single, without making a text.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>

namespace tolmer {

// The value number / 10^places; number is at most 10^7.
struct SevenDigits {
  std::uint32_t number = 0;
  int places = 0;

  // Takes zeros away from the end of the number as far as they are decimals beyond `least`.
  void dropZeros(int least = 0) {
    for (; places > least && number % 10 == 0; number /= 10) --places;
  }
  // Half away from zero, to so many decimals; fewer stay as they are.
  void roundTo(int decimals) {
    for (; places > decimals + 1; --places) number /= 10;
    if (places > decimals) number = (number + 5) / 10;
    places = std::min(places, decimals);
  }
};

// a rounded to seven significant digits, for 0.001 <= a < 10000000. Nothing for other values, and
// nothing near a tie, where it takes the exact binary value to tell which way to round.
std::optional<SevenDigits> sevenDigits(float a);

}  // namespace tolmer
