#include "textimport/typed_number.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

#include "base/trimmed.h"

namespace tolmer {
namespace {

constexpr double plainBelow = 1e15;

bool belongsToNumber(char c) {
  return (c >= '0' && c <= '9') || c == '.' || c == '+' || c == '-' || c == 'e' || c == 'E';
}

// The power of ten of the first digit that is not 0, for a number that no double can hold.
long long magnitude(std::string_view digits) {
  const auto mantissaEnd = std::min(digits.find_first_of("eE"), digits.size());
  const std::string_view mantissa = digits.substr(0, mantissaEnd);
  const auto point = static_cast<long long>(std::min(mantissa.find('.'), mantissa.size()));
  const auto first = static_cast<long long>(mantissa.find_first_of("123456789"));
  const long long inMantissa = first < point ? point - first - 1 : point - first;
  if (mantissaEnd == digits.size()) return inMantissa;
  std::string_view exponent = digits.substr(mantissaEnd + 1);
  if (exponent.starts_with('+')) exponent.remove_prefix(1);
  long long power = 0;
  const auto failed = std::from_chars(exponent.data(), exponent.data() + exponent.size(), power).ec;
  constexpr long long beyondAnyText = 1LL << 60;
  if (failed != std::errc()) power = exponent.starts_with('-') ? -beyondAnyText : beyondAnyText;
  return inMantissa + std::clamp(power, -beyondAnyText, beyondAnyText);
}

}  // namespace

NumberReading readNumber(std::string_view text) {
  std::string_view digits = trimmed(text);
  // from_chars knows no leading "+", and does know "inf" and "nan".
  if (digits.starts_with('+')) {
    digits.remove_prefix(1);
    if (digits.starts_with('-')) return {};
  }
  if (!std::all_of(digits.begin(), digits.end(), belongsToNumber)) return {};
  double number = 0;
  const char* const last = digits.data() + digits.size();
  const auto [end, failed] = std::from_chars(digits.data(), last, number);
  if (failed == std::errc::invalid_argument || end != last) return {};
  if (failed == std::errc()) return {NumberReading::Kind::number, number};
  if (magnitude(digits) > 0) return {NumberReading::Kind::tooLarge, 0};
  return {NumberReading::Kind::number, digits.starts_with('-') ? -0.0 : 0.0};
}

std::string exactText(double number) {
  const double size = std::fabs(number);
  const bool plain = size == 0 || (size >= 1e-5 && size < plainBelow);
  std::array<char, 32> digits;
  const auto form = plain ? std::chars_format::fixed : std::chars_format::scientific;
  return {digits.data(),
          std::to_chars(digits.data(), digits.data() + digits.size(), number, form).ptr};
}

}  // namespace tolmer
