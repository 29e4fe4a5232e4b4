#include "fieldfile/number_text.h"

#include <charconv>
#include <cmath>
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
