#include "engine/number_format.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "base/rounded_decimal.h"

namespace tolmer {
namespace {

constexpr int singleDigits = 7;
constexpr int doubleDigits = 15;

std::string zeros(int count) {
  return std::string(static_cast<std::size_t>(std::max(count, 0)), '0');
}

// The value is 0.digits times ten to the power of point; no digits at all stand for zero.
struct Decimal {
  bool negative = false;
  std::string digits;
  int point = 0;

  int count() const { return static_cast<int>(digits.size()); }
  void roundTo(int keep);
};

// Half away from zero; keep may be zero or less.
void Decimal::roundTo(int keep) {
  if (keep >= count()) return;
  const bool up = keep >= 0 && digits[keep] >= '5';
  digits.resize(static_cast<std::size_t>(std::max(keep, 0)));
  if (up) {
    const std::size_t lastBelowNine = digits.find_last_not_of('9');
    if (lastBelowNine == std::string::npos) {
      digits = "1";
      ++point;
    } else {
      digits.resize(lastBelowNine + 1);
      ++digits.back();
    }
  }
  digits.resize(digits.find_last_not_of('0') + 1);
  if (digits.empty()) point = 0;
}

// value, not negative, as count significant digits.
template <int count, class Value>
Decimal digitsOf(Value value) {
  std::array<char, count + 16> text;
  const char* const end = std::to_chars(text.data(), text.data() + text.size(), value,
                                        std::chars_format::scientific, count - 1)
                              .ptr;
  const char* const exponent = std::find<const char*>(text.data(), end, 'e');
  Decimal decimal;
  decimal.digits.push_back(text[0]);
  decimal.digits.append<const char*>(&text[2], exponent);
  std::from_chars(exponent + (exponent[1] == '+' ? 2 : 1), end, decimal.point);
  ++decimal.point;
  return decimal;
}

// Ten digits more than wanted tell which way to round, unless they look like a tie; then it takes
// all digits that a binary value can have, which are longest.
template <int significant, int longest, class Value>
Decimal decimalOf(Value value) {
  constexpr std::string_view tie = "5000000000";
  const Value magnitude = std::fabs(value);
  Decimal decimal = digitsOf<significant + static_cast<int>(tie.size())>(magnitude);
  if (decimal.digits.ends_with(tie)) decimal = digitsOf<longest>(magnitude);
  decimal.negative = value < 0;
  decimal.roundTo(significant);
  return decimal;
}

Decimal decimalOf(float value) {
  auto digits = sevenDigits(std::fabs(value));
  if (!digits) return decimalOf<singleDigits, 112>(value);
  digits->dropZeros();
  std::array<char, singleDigits + 1> text;
  const char* end = std::to_chars(text.data(), text.data() + text.size(), digits->number).ptr;
  Decimal decimal;
  decimal.negative = value < 0;
  decimal.point = static_cast<int>(end - text.data()) - digits->places;
  while (end > text.data() && end[-1] == '0') --end;
  decimal.digits.assign<const char*>(text.data(), end);
  return decimal;
}

Decimal decimalOf(double value) {
  const auto rounded = roundedDecimal(std::fabs(value), doubleDigits);
  if (!rounded) return decimalOf<doubleDigits, 767>(value);
  Decimal decimal{value < 0, std::to_string(rounded->digits), rounded->exponent + 1};
  decimal.digits.resize(decimal.digits.find_last_not_of('0') + 1);
  return decimal;
}

void groupThousands(std::string& text, int begin, int end) {
  for (int at = end - 3; at > begin; at -= 3) text.insert(static_cast<std::size_t>(at), 1, ',');
}

std::string fixedText(Decimal value, const NumberPicture& picture) {
  value.roundTo(value.point + picture.decimals);
  const int sign = value.negative && !value.digits.empty() ? 1 : 0;
  const int left = std::max({value.point, picture.leftZeros, 0});
  const int right =
      std::max(value.digits.empty() ? 0 : value.count() - value.point, picture.fixedDecimals);
  const int point = picture.point ? 1 : 0;
  const int pointAt = sign + left;
  const int length = pointAt + point + std::max(right, 0);
  std::string text(static_cast<std::size_t>(length), '0');
  if (sign == 1) text[0] = '-';
  if (point == 1) text[pointAt] = '.';
  for (int i = 0; i < value.count(); ++i) {
    const int place = pointAt - value.point + i + (i < value.point ? 0 : point);
    text[place] = value.digits[i];
  }
  if (picture.grouped) groupThousands(text, sign, pointAt);
  return text;
}

std::string exponentText(int exponent, int leastDigits) {
  const std::string digits = std::to_string(std::abs(exponent));
  return std::string(exponent < 0 ? "E-" : "E+") +
         zeros(leastDigits - static_cast<int>(digits.size())) + digits;
}

std::string scientificText(Decimal value, const NumberPicture& picture) {
  const int left = std::max(picture.leftZeros, 1);
  value.roundTo(left + picture.decimals);
  const int exponent = value.digits.empty() ? 0 : value.point - left;
  value.point -= exponent;
  return fixedText(value, picture) + exponentText(exponent, picture.exponentDigits);
}

// The same of a single's seven digits, from the right, by a short picture.
std::string fixedText(SevenDigits value, bool negative, const NumberPicture& picture) {
  value.roundTo(picture.decimals);
  value.dropZeros(picture.fixedDecimals);
  const bool sign = negative && value.number > 0;
  constexpr int longestText = 64;
  std::array<char, longestText> text;
  char* at = text.data() + text.size();
  const auto put = [&at, &value] {
    *--at = static_cast<char>('0' + value.number % 10);
    value.number /= 10;
  };
  for (int i = value.places; i < picture.fixedDecimals; ++i) *--at = '0';
  for (int i = 0; i < value.places; ++i) put();
  if (picture.point) *--at = '.';
  int untilComma = picture.grouped ? 3 : longestText;
  for (int i = 0; value.number > 0 || i < picture.leftZeros; ++i, --untilComma) {
    if (untilComma == 0) {
      *--at = ',';
      untilComma = 3;
    }
    put();
  }
  if (sign) *--at = '-';
  return {at, text.data() + text.size()};
}

template <class Value>
std::string byPicture(Value value, const NumberPicture& picture) {
  if (picture.general) return generalText(value);
  if (!std::isfinite(value)) return "NA";
  if (!picture.itself.empty()) return std::string(picture.itself);
  const Decimal decimal = decimalOf(value);
  return picture.scientific ? scientificText(decimal, picture) : fixedText(decimal, picture);
}

template <class Value>
std::string general(Value value, int significant) {
  if (!std::isfinite(value)) return "NA";
  const Decimal decimal = decimalOf(value);
  NumberPicture picture;
  picture.leftZeros = 1;
  const bool fixed = decimal.point <= significant && decimal.count() - decimal.point <= significant;
  picture.decimals = fixed ? significant : decimal.count() - 1;
  picture.point = decimal.count() > (fixed ? decimal.point : 1);
  picture.exponentDigits = 2;
  return fixed ? fixedText(decimal, picture) : scientificText(decimal, picture);
}

}  // namespace

NumberPicture::NumberPicture(std::string_view text) : general(text.empty()) {
  if (text.find_first_not_of('*') == std::string_view::npos) itself = text;
  for (const char c : text) {
    if (c == '.') point = true;
    if (c == ',') grouped = true;
    if (c == 'E') scientific = true;
    if (c != '0' && c != '#') continue;
    const int shown = c == '0' ? 1 : 0;
    if (scientific) {
      ++exponentDigits;
    } else if (point) {
      ++decimals;
      if (shown == 1) fixedDecimals = decimals;
    } else {
      leftZeros += shown;
    }
  }
  constexpr int mostDigits = 24;
  isShort = !general && itself.empty() && !scientific && leftZeros + fixedDecimals <= mostDigits;
}

std::string formatNumber(float value, const NumberPicture& picture) {
  const float magnitude = std::fabs(value);
  if (picture.isShort)
    if (const auto digits = magnitude == 0 ? SevenDigits{} : sevenDigits(magnitude))
      return fixedText(*digits, value < 0, picture);
  return byPicture(value, picture);
}
std::string formatNumber(double value, const NumberPicture& picture) {
  return byPicture(value, picture);
}
std::string formatNumber(float value, std::string_view picture) {
  return formatNumber(value, NumberPicture(picture));
}
std::string formatNumber(double value, std::string_view picture) {
  return formatNumber(value, NumberPicture(picture));
}
std::string formatNumber(int value, std::string_view picture) {
  return formatNumber(static_cast<double>(value), picture);
}

std::string generalText(float value) { return general(value, singleDigits); }
std::string generalText(double value) { return general(value, doubleDigits); }

std::optional<SevenDigits> sevenDigits(float a) {
  static constexpr std::array<double, 11> bounds = {1e-3, 1e-2, 1e-1, 1,   1e1, 1e2,
                                                    1e3,  1e4,  1e5,  1e6, 1e7};
  static constexpr std::array<double, 10> tenfold = {1,   1e1, 1e2, 1e3, 1e4,
                                                     1e5, 1e6, 1e7, 1e8, 1e9};
  if (!(a >= 0.001F && a < 1e7F)) return std::nullopt;
  // By the logarithm of 2, and from -4; the power of ten below a is this one or the next.
  const int binary = static_cast<int>(std::bit_cast<std::uint32_t>(a) >> 23) - 127;
  const int exponent = binary * 1233 >> 12;
  const bool next = a >= bounds[exponent + 4];
  SevenDigits digits{.places = 6 - exponent - (next ? 1 : 0)};
  // Below 10^7 and a hundred millionth off at most.
  const double scaled = a * tenfold[digits.places];
  digits.number = static_cast<std::uint32_t>(scaled + 0.5);
  const double rest = scaled - static_cast<double>(digits.number);
  if (std::fabs(rest) > 0.5 - 1e-6) return std::nullopt;
  return digits;
}

}  // namespace tolmer
