#include "fieldfile/number_text.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <system_error>

namespace tolmer {
namespace {

// from_chars knows no leading "+"; a second sign behind it is no number.
std::optional<std::string_view> withoutPlus(std::string_view text) {
  if (!text.starts_with('+')) return text;
  text.remove_prefix(1);
  if (text.starts_with('-') || text.starts_with('+')) return std::nullopt;
  return text;
}

bool hasOnlyNumberCharacters(std::string_view text) {
  return text.find_first_not_of("+-.0123456789eE") == std::string_view::npos;
}

// Whether a number that no double can hold is too small rather than too large.
bool isTooSmall(std::string_view text) {
  const auto exponent = text.find_first_of("eE");
  if (exponent != std::string_view::npos) return text.substr(exponent + 1).starts_with('-');
  return text.find_first_of("123456789") > text.find('.');
}

template <class Number>
std::from_chars_result convert(std::string_view text, Number& number) {
  return std::from_chars(text.data(), text.data() + text.size(), number);
}

// The number of up to fifteen digits with an optional minus sign and point, as most texts are. Both
// the digits and the power of ten are exact as doubles, so the quotient is the text's number rounded
// once, and rounds on to the same single unless it lies halfway between two. Nothing then, and
// nothing for any other text.
std::optional<float> plainDecimal(std::string_view text) {
  constexpr std::array<double, 16> tenfold = {1,   1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                              1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
  const bool negative = text.starts_with('-');
  if (negative) text.remove_prefix(1);
  std::int64_t digits = 0;
  std::size_t places = 0;
  bool point = false;
  if (text.size() > tenfold.size()) return std::nullopt;
  for (const char c : text) {
    const auto digit = static_cast<unsigned char>(c - '0');
    if (digit > 9 && (c != '.' || point)) return std::nullopt;
    if (digit > 9) {
      point = true;
    } else {
      digits = 10 * digits + digit;
      if (point) ++places;
    }
  }
  const std::size_t count = text.size() - (point ? 1 : 0);
  if (count == 0 || count == tenfold.size()) return std::nullopt;
  const double number = static_cast<double>(digits) / tenfold[places];
  constexpr std::uint64_t belowSingle = (std::uint64_t{1} << 29) - 1;  // bits that a single lacks
  if ((std::bit_cast<std::uint64_t>(number) & belowSingle) == (belowSingle + 1) / 2)
    return std::nullopt;
  return static_cast<float>(negative ? -number : number);
}

}  // namespace

std::optional<std::int16_t> integerFromText(std::string_view text) {
  const auto digits = withoutPlus(text);
  if (!digits) return std::nullopt;
  std::int16_t number = 0;
  const auto [end, failed] = convert(*digits, number);
  if (failed != std::errc() || end != digits->data() + digits->size()) return std::nullopt;
  return number;
}

std::optional<float> singleFromText(std::string_view text) {
  if (const auto plain = plainDecimal(text)) return plain;
  const auto digits = withoutPlus(text);
  if (!digits || !hasOnlyNumberCharacters(*digits)) return std::nullopt;
  float number = 0;
  const auto [end, failed] = convert(*digits, number);
  if (failed == std::errc::invalid_argument || end != digits->data() + digits->size())
    return std::nullopt;
  if (failed == std::errc()) return std::isfinite(number) ? std::optional(number) : std::nullopt;
  double wide = 0;
  const bool wideHolds = convert(*digits, wide).ec == std::errc();
  const bool tooSmall = wideHolds ? std::fabs(wide) < 1 : isTooSmall(*digits);
  return tooSmall ? std::optional(0.0f) : std::nullopt;
}

}  // namespace tolmer
