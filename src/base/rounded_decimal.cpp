#include "base/rounded_decimal.h"

#include <array>
#include <bit>

namespace tolmer {
namespace {

// Ten to the power of 0 to 19.
constexpr auto tenfold = [] {
  std::array<std::uint64_t, 20> powers{1};
  for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
  return powers;
}();

}  // namespace

// Scaled to a whole number of that many digits it has 117 bits at most.
std::optional<RoundedDecimal> roundedDecimal(double number, int significant) {
  constexpr int fraction = 52;
  const auto bits = std::bit_cast<std::uint64_t>(number);
  const int binary = static_cast<int>(bits >> fraction) - 1023;
  if (binary < -7 || binary >= fraction) return std::nullopt;
  constexpr std::uint64_t leading = std::uint64_t{1} << fraction;
  const unsigned __int128 mantissa = leading | (bits & (leading - 1));
  const int shift = fraction - binary;
  const std::uint64_t bound = tenfold[static_cast<std::size_t>(significant)];
  // By the logarithm of 2; the number's own is this one or the next.
  for (int exponent = binary * 1233 >> 12; exponent < significant; ++exponent) {
    const auto product = mantissa * tenfold[static_cast<std::size_t>(significant - 1 - exponent)];
    auto digits = static_cast<std::uint64_t>(product >> shift);
    if (digits >= bound) continue;
    const auto rest = product - (static_cast<unsigned __int128>(digits) << shift);
    const auto half = static_cast<unsigned __int128>(1) << (shift - 1);
    if (rest == half) return std::nullopt;
    if (rest > half) ++digits;
    if (digits < bound) return RoundedDecimal{digits, exponent};
  }
  return std::nullopt;
}

}  // namespace tolmer
