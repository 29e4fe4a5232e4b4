// Numbers and their texts, byte for byte as libstdc++ has them.
#include "EmscriptenLibrary.h"

#if defined(_LIBCPP_VERSION) && _LIBCPP_VERSION < 14000
#include <dragonbox/dragonbox.h>
#include <fast_float_all.h>

#include <cmath>
#include <cstdio>
#include <limits>
#include <string>
#include <string_view>

namespace {

using std::chars_format;

// Digits make no infinity, and a zero of zeros alone.
template <class Real>
bool isOutOfRange(std::string_view text, Real number) {
  if (std::isinf(number)) return text.find_first_of("nN") == text.npos;
  const auto digits = text.substr(0, text.find_first_of("eE"));
  return number == 0 && digits.find_first_of("123456789") != text.npos;
}

template <class Real>
std::from_chars_result read(const char* first, const char* last, Real& value, chars_format form) {
  const auto asked = form == chars_format::fixed        ? fast_float::fixed
                     : form == chars_format::scientific ? fast_float::scientific
                                                        : fast_float::general;
  Real number = 0;
  const auto [end, error] = fast_float::from_chars(first, last, number, asked);
  if (error != std::errc()) return {first, error};
  if (isOutOfRange({first, static_cast<std::size_t>(end - first)}, number))
    return {end, std::errc::result_out_of_range};
  value = number;
  return {end, error};
}

std::to_chars_result put(char* first, char* last, std::string_view text) {
  if (last - first < static_cast<std::ptrdiff_t>(text.size()))
    return {last, std::errc::value_too_large};
  return {std::copy(text.begin(), text.end(), first), std::errc()};
}

// The C library rounds right and knows no language but "C".
std::string printed(double value, chars_format form, int precision) {
  const char* const picture = form == chars_format::fixed        ? "%.*f"
                              : form == chars_format::scientific ? "%.*e"
                                                                 : "%.*g";
  constexpr int longestWhole = 309;
  std::string text(static_cast<std::size_t>(longestWhole + std::max(precision, 6) + 3), '\0');
  const int length = std::snprintf(text.data(), text.size(), picture, precision, value);
  text.resize(static_cast<std::size_t>(length));
  return text;
}

// The digits of a number, the point behind the first one, and the power of ten to be taken of it.
struct Decimal {
  std::string digits;
  int exponent = 0;
};

// The fewest digits that read back, and of those the nearest.
template <class Real>
Decimal shortest(Real size) {
  namespace dragonbox = jkj::dragonbox;
  if (size == 0) return {"0"};
  const auto decimal = dragonbox::to_decimal(size, dragonbox::policy::sign::ignore,
                                             dragonbox::policy::cache::compact);
  std::string digits = std::to_string(decimal.significand);
  const int exponent = decimal.exponent + static_cast<int>(digits.size()) - 1;
  return {std::move(digits), exponent};
}

std::string scientificText(const Decimal& decimal) {
  std::string text = decimal.digits;
  if (text.size() > 1) text.insert(1, 1, '.');
  const std::string power = std::to_string(std::abs(decimal.exponent));
  return text + (decimal.exponent < 0 ? "e-" : "e+") + (power.size() < 2 ? "0" : "") + power;
}

// A large whole number has digits that are not needed to read it back.
template <class Real>
std::string fixedText(const Decimal& decimal, Real size) {
  if (size >= 1ULL << std::numeric_limits<Real>::digits)
    return printed(size, chars_format::fixed, 0);
  std::string text = decimal.digits;
  if (decimal.exponent < 0)
    return "0." + std::string(static_cast<std::size_t>(-decimal.exponent) - 1, '0') + text;
  const auto whole = static_cast<std::size_t>(decimal.exponent) + 1;
  if (text.size() < whole) text.append(whole - text.size(), '0');
  if (text.size() > whole) text.insert(whole, 1, '.');
  return text;
}

// Where no form is asked for, the shorter one, fixed if they are alike.
template <class Real>
std::string shortestText(Real size, const chars_format* asked) {
  const Decimal decimal = shortest(size);
  const bool isLong = decimal.exponent < -4 || decimal.exponent >= 6;
  const std::string scientific = scientificText(decimal);
  if (asked && (*asked == chars_format::general ? isLong : *asked == chars_format::scientific))
    return scientific;
  const std::string fixed = fixedText(decimal, size);
  return asked || fixed.size() <= scientific.size() ? fixed : scientific;
}

template <class Real>
std::to_chars_result write(char* first, char* last, Real value, const chars_format* asked) {
  if (!std::isfinite(value)) return put(first, last, printed(value, chars_format::general, 1));
  const std::string text = shortestText(std::abs(value), asked);
  return put(first, last, std::signbit(value) ? '-' + text : text);
}

}  // namespace

namespace std {

from_chars_result from_chars(const char* first, const char* last, double& value,
                             chars_format form) {
  return read(first, last, value, form);
}
from_chars_result from_chars(const char* first, const char* last, float& value, chars_format form) {
  return read(first, last, value, form);
}
to_chars_result to_chars(char* first, char* last, double value) {
  return write(first, last, value, nullptr);
}
to_chars_result to_chars(char* first, char* last, float value) {
  return write(first, last, value, nullptr);
}
to_chars_result to_chars(char* first, char* last, double value, chars_format form) {
  return write(first, last, value, &form);
}
to_chars_result to_chars(char* first, char* last, float value, chars_format form) {
  return write(first, last, value, &form);
}
to_chars_result to_chars(char* first, char* last, double value, chars_format form, int precision) {
  return put(first, last, printed(value, form, precision));
}

}  // namespace std

#endif
