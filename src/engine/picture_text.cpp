#include "engine/picture_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "engine/seven_digits.h"

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
  const bool up = keep >= 0 && digits[static_cast<std::size_t>(keep)] >= '5';
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

Decimal decimalOf(double value) { return decimalOf<doubleDigits, 767>(value); }

struct Picture {
  int leftZeros = 0;      // digits that always show left of the point
  int decimals = 0;       // most digits right of the point
  int fixedDecimals = 0;  // those of them that always show
  int exponentDigits = 0;
  bool point = false;
  bool grouped = false;
  bool scientific = false;
};

Picture readPicture(std::string_view text) {
  Picture picture;
  for (const char c : text) {
    if (c == '.') picture.point = true;
    if (c == ',') picture.grouped = true;
    if (c == 'E') picture.scientific = true;
    if (c != '0' && c != '#') continue;
    const int shown = c == '0' ? 1 : 0;
    if (picture.scientific) {
      ++picture.exponentDigits;
    } else if (picture.point) {
      ++picture.decimals;
      if (shown == 1) picture.fixedDecimals = picture.decimals;
    } else {
      picture.leftZeros += shown;
    }
  }
  return picture;
}

void groupThousands(std::string& text, int begin, int end) {
  for (int at = end - 3; at > begin; at -= 3) text.insert(static_cast<std::size_t>(at), 1, ',');
}

std::string fixedText(Decimal value, const Picture& picture) {
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
  if (point == 1) text[static_cast<std::size_t>(pointAt)] = '.';
  for (int i = 0; i < value.count(); ++i) {
    const int place = pointAt - value.point + i + (i < value.point ? 0 : point);
    text[static_cast<std::size_t>(place)] = value.digits[static_cast<std::size_t>(i)];
  }
  if (picture.grouped) groupThousands(text, sign, pointAt);
  return text;
}

std::string exponentText(int exponent, int leastDigits) {
  const std::string digits = std::to_string(std::abs(exponent));
  return std::string(exponent < 0 ? "E-" : "E+") +
         zeros(leastDigits - static_cast<int>(digits.size())) + digits;
}

std::string scientificText(Decimal value, Picture picture) {
  const int left = std::max(picture.leftZeros, 1);
  value.roundTo(left + picture.decimals);
  const int exponent = value.digits.empty() ? 0 : value.point - left;
  value.point -= exponent;
  return fixedText(value, picture) + exponentText(exponent, picture.exponentDigits);
}

template <class Value>
std::string byPicture(Value value, std::string_view picture) {
  if (picture.empty()) return generalText(value);
  if (!std::isfinite(value)) return "NA";
  if (std::all_of(picture.begin(), picture.end(), [](char c) { return c == '*'; }))
    return std::string(picture);
  const Picture parts = readPicture(picture);
  const Decimal decimal = decimalOf(value);
  return parts.scientific ? scientificText(decimal, parts) : fixedText(decimal, parts);
}

template <class Value>
std::string general(Value value, int significant) {
  if (!std::isfinite(value)) return "NA";
  const Decimal decimal = decimalOf(value);
  Picture picture;
  picture.leftZeros = 1;
  const bool fixed = decimal.point <= significant && decimal.count() - decimal.point <= significant;
  picture.decimals = fixed ? significant : decimal.count() - 1;
  picture.point = decimal.count() > (fixed ? decimal.point : 1);
  picture.exponentDigits = 2;
  return fixed ? fixedText(decimal, picture) : scientificText(decimal, picture);
}

}  // namespace

std::string formatNumber(float value, std::string_view picture) {
  return byPicture(value, picture);
}
std::string formatNumber(double value, std::string_view picture) {
  return byPicture(value, picture);
}
std::string formatNumber(int value, std::string_view picture) {
  return byPicture(static_cast<double>(value), picture);
}

std::string generalText(float value) { return general(value, singleDigits); }
std::string generalText(double value) { return general(value, doubleDigits); }

}  // namespace tolmer
