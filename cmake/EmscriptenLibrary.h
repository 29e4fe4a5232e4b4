// What the C++ library of emscripten 3.1.6 (libc++ 13) lacks of C++20, seen by every source of the
// browser's build. Empty with a newer one. Numbers come out byte for byte as libstdc++ has them;
// the C library under it rounds right and knows no language but "C".
#pragma once
#include <version>
#if defined(_LIBCPP_VERSION) && _LIBCPP_VERSION < 14000
#include <algorithm>
#include <array>
#include <bit>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <iterator>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace std {

template <class To, class From>
constexpr To bit_cast(const From& from) noexcept {
  return __builtin_bit_cast(To, from);
}

namespace tolmer_gaps {

// The end of the digits from `at` on.
inline const char* digitsEnd(const char* at, const char* last) {
  while (at != last && *at >= '0' && *at <= '9') ++at;
  return at;
}

// The end of an exponent that begins there; `at` itself where there is none.
inline const char* exponentEnd(const char* at, const char* last) {
  if (at == last || (*at != 'e' && *at != 'E')) return at;
  const char* digits = at + 1;
  if (digits != last && (*digits == '+' || *digits == '-')) ++digits;
  const char* const end = digitsEnd(digits, last);
  return end == digits ? at : end;
}

// The end of a number in digits, by the grammar of from_chars; `first` where there is none.
inline const char* decimalEnd(const char* first, const char* last, chars_format form) {
  const char* const whole = first != last && *first == '-' ? first + 1 : first;
  const char* end = digitsEnd(whole, last);
  auto digits = end - whole;
  if (end != last && *end == '.') {
    const char* const fraction = end + 1;
    end = digitsEnd(fraction, last);
    digits += end - fraction;
  }
  if (digits == 0) return first;
  if (form == chars_format::fixed) return end;
  const char* const all = exponentEnd(end, last);
  return form == chars_format::scientific && all == end ? first : all;
}

inline double parsed(const char* text, char** end, double) { return std::strtod(text, end); }
inline float parsed(const char* text, char** end, float) { return std::strtof(text, end); }

inline bool hasDigitNotZero(const string& text) {
  return text.substr(0, text.find_first_of("eE")).find_first_of("123456789") != string::npos;
}

// Powers of ten that are no numbers to round: up to 22, of float up to 10.
template <class Real>
inline constexpr int lastExactPower = numeric_limits<Real>::digits == 53 ? 22 : 10;
template <class Real>
inline constexpr auto exactPowers = [] {
  array<Real, lastExactPower<Real> + 1> powers{1};
  for (size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
  return powers;
}();

// Digits as a whole number and the power of ten that is to be taken of it.
struct Scaled {
  unsigned long long number = 0;
  int power = 0;
};

// What decimalEnd has found; nothing where the number may be too long or too large for it.
inline optional<Scaled> scaledIn(const char* at, const char* end) {
  constexpr int longest = 18;
  Scaled scaled;
  int digits = 0;
  bool isFraction = false;
  for (; at != end && *at != 'e' && *at != 'E'; ++at) {
    if (*at == '.') {
      isFraction = true;
      continue;
    }
    if ((digits > 0 || *at != '0') && ++digits > longest) return nullopt;
    scaled.number = scaled.number * 10 + static_cast<unsigned>(*at - '0');
    if (isFraction) --scaled.power;
  }
  if (at == end) return scaled;
  at += at[1] == '+' ? 2 : 1;
  int power = 0;
  if (std::from_chars(at, end, power).ec != errc() || power > 999 || power < -999) return nullopt;
  scaled.power += power;
  return scaled;
}

// A whole number and a power of ten that are exact have a quotient or product that is rounded once,
// so right (Clinger 1990, How to read floating point numbers accurately).
template <class Real>
optional<Real> roundedOnce(const char* first, const char* end) {
  const bool isNegative = *first == '-';
  const auto scaled = scaledIn(first + isNegative, end);
  if (!scaled || scaled->number >> numeric_limits<Real>::digits != 0) return nullopt;
  const auto power = static_cast<size_t>(std::abs(scaled->power));
  if (power >= exactPowers<Real>.size()) return nullopt;
  const Real ten = exactPowers<Real>[power];
  const Real whole = static_cast<Real>(scaled->number);
  const Real size = scaled->power < 0 ? whole / ten : whole * ten;
  return isNegative ? -size : size;
}

template <class Real>
from_chars_result read(const char* first, const char* last, Real& value, chars_format form) {
  const char* const sign = first != last && *first == '-' ? first + 1 : first;
  const bool isWord = sign != last && std::strchr("iInN", *sign) && *sign;  // inf, nan
  const char* end = isWord ? last : decimalEnd(first, last, form);
  if (end == first) return {first, errc::invalid_argument};
  if (const auto number = isWord ? nullopt : roundedOnce<Real>(first, end)) {
    value = *number;
    return {end, errc()};
  }
  const string text(first, end);
  char* stop = nullptr;
  const Real number = parsed(text.c_str(), &stop, Real());
  if (stop == text.c_str()) return {first, errc::invalid_argument};
  end = first + (stop - text.c_str());
  if (!isWord && (std::isinf(number) || (number == 0 && hasDigitNotZero(text))))
    return {end, errc::result_out_of_range};
  value = number;
  return {end, errc()};
}

inline to_chars_result put(char* first, char* last, string_view text) {
  if (last - first < static_cast<ptrdiff_t>(text.size())) return {last, errc::value_too_large};
  return {std::copy(text.begin(), text.end(), first), errc()};
}

inline string printed(double value, chars_format form, int precision) {
  const char* const picture = form == chars_format::fixed        ? "%.*f"
                              : form == chars_format::scientific ? "%.*e"
                                                                 : "%.*g";
  char usual[64];
  const auto length =
      static_cast<size_t>(std::snprintf(usual, sizeof(usual), picture, precision, value));
  if (length < sizeof(usual)) return {usual, length};
  string text(length + 1, '\0');
  std::snprintf(text.data(), text.size(), picture, precision, value);
  text.pop_back();
  return text;
}

template <class Real>
bool readsBack(const string& text, Real value) {
  return parsed(text.c_str(), nullptr, Real()) == value;
}

// "d.ddde+xx" one higher in its last digit; empty where that carries.
inline string successor(string text) {
  char& digit = text[text.find('e') - 1];
  if (digit == '9' || digit == '.') return {};
  ++digit;
  return text;
}

// In scientific form, the fewest digits that read back, and of those the nearest.
template <class Real>
string shortest(Real value) {
  using Limits = numeric_limits<Real>;
  // A decimal of so many digits comes back from any normal number: a shorter one is its beginning.
  const bool isNormal = std::abs(value) >= Limits::min();
  // Where numbers above lie twice as far apart as those below, the nearest may be too low.
  int power = 0;
  const bool isPowerOfTwo = std::abs(std::frexp(value, &power)) == Real(0.5);
  for (int digits = isNormal ? Limits::digits10 : 1; digits < Limits::max_digits10; ++digits) {
    string text = printed(value, chars_format::scientific, digits - 1);
    if (readsBack(text, value)) return text;
    if (isPowerOfTwo && readsBack(successor(text), value)) return successor(text);
  }
  return printed(value, chars_format::scientific, Limits::max_digits10 - 1);
}

// The digits of a number, the point behind the first one, and the power of ten to be taken of it.
struct Decimal {
  string digits;
  int exponent = 0;
};

inline Decimal decimalOf(string digits, int exponent) {
  digits.resize(std::max<size_t>(digits.find_last_not_of('0') + 1, 1));
  return {std::move(digits), exponent};
}

// Of a value that is a whole number of at most digits10 digits over a power of ten: its product
// with that power is less than a half off. No other decimal of so few digits reads back as the
// value.
template <class Real>
optional<Decimal> fewDigits(Real size) {
  for (int power = 0; power <= lastExactPower<Real>; ++power) {
    const Real ten = exactPowers<Real>[static_cast<size_t>(power)];
    const Real whole = std::nearbyint(size * ten);
    if (!(whole < exactPowers<Real>[numeric_limits<Real>::digits10])) return nullopt;
    if (whole / ten != size) continue;
    string digits = std::to_string(static_cast<unsigned long long>(whole));
    const int exponent = whole == 0 ? 0 : static_cast<int>(digits.size()) - 1 - power;
    return decimalOf(std::move(digits), exponent);
  }
  return nullopt;
}

template <class Real>
Decimal shortestDecimal(Real size) {
  if (auto few = fewDigits(size)) return *few;
  const string text = shortest(size);
  const auto mark = text.find('e');
  const int exponent = std::atoi(text.c_str() + mark + 1);
  return decimalOf(text[0] + (mark > 1 ? text.substr(2, mark - 2) : string()), exponent);
}

inline string scientificText(const Decimal& decimal) {
  string text = decimal.digits;
  if (text.size() > 1) text.insert(1, 1, '.');
  const string power = std::to_string(std::abs(decimal.exponent));
  return text + (decimal.exponent < 0 ? "e-" : "e+") + (power.size() < 2 ? "0" : "") + power;
}

// A large whole number has digits that are not needed to read it back.
template <class Real>
string fixedText(const Decimal& decimal, Real size) {
  if (size >= 1ULL << numeric_limits<Real>::digits) return printed(size, chars_format::fixed, 0);
  string text = decimal.digits;
  if (decimal.exponent < 0)
    return "0." + string(static_cast<size_t>(-decimal.exponent) - 1, '0') + text;
  const auto whole = static_cast<size_t>(decimal.exponent) + 1;
  if (text.size() < whole) text.append(whole - text.size(), '0');
  if (text.size() > whole) text.insert(whole, 1, '.');
  return text;
}

template <class Real>
to_chars_result writeShortest(char* first, char* last, Real value, const chars_format* asked) {
  if (!std::isfinite(value)) return put(first, last, printed(value, chars_format::general, 1));
  if (std::signbit(value)) {
    if (first == last) return {last, errc::value_too_large};
    *first++ = '-';
  }
  const Real size = std::abs(value);
  const Decimal decimal = shortestDecimal(size);
  const string text = scientificText(decimal);
  const bool isGeneral = asked && *asked == chars_format::general;
  if (isGeneral ? decimal.exponent < -4 || decimal.exponent >= 6
                : asked && *asked == chars_format::scientific)
    return put(first, last, text);
  const string whole = fixedText(decimal, size);
  // Where none is asked for, the shorter one, fixed if they are alike.
  return put(first, last, asked || whole.size() <= text.size() ? whole : text);
}

}  // namespace tolmer_gaps

inline from_chars_result from_chars(const char* first, const char* last, double& value,
                                    chars_format form = chars_format::general) {
  return tolmer_gaps::read(first, last, value, form);
}
inline from_chars_result from_chars(const char* first, const char* last, float& value,
                                    chars_format form = chars_format::general) {
  return tolmer_gaps::read(first, last, value, form);
}
inline to_chars_result to_chars(char* first, char* last, double value) {
  return tolmer_gaps::writeShortest(first, last, value, nullptr);
}
inline to_chars_result to_chars(char* first, char* last, float value) {
  return tolmer_gaps::writeShortest(first, last, value, nullptr);
}
inline to_chars_result to_chars(char* first, char* last, double value, chars_format form) {
  return tolmer_gaps::writeShortest(first, last, value, &form);
}
inline to_chars_result to_chars(char* first, char* last, float value, chars_format form) {
  return tolmer_gaps::writeShortest(first, last, value, &form);
}
inline to_chars_result to_chars(char* first, char* last, double value, chars_format form,
                                int precision) {
  return tolmer_gaps::put(first, last, tolmer_gaps::printed(value, form, precision));
}

namespace ranges {

// Each by the algorithm of the same name on iterators, with a projection where one is asked for.
namespace tolmer_gaps {

template <class Projection, class Order>
auto through(Projection projection, Order order) {
  return [projection, order](const auto& a, const auto& b) {
    return std::invoke(order, std::invoke(projection, a), std::invoke(projection, b));
  };
}
template <class Projection, class Value>
auto equalTo(Projection projection, const Value& value) {
  return [projection, &value](const auto& a) { return std::invoke(projection, a) == value; };
}
template <class Projection, class Test>
auto passing(Projection projection, Test test) {
  return
      [projection, test](const auto& a) { return std::invoke(test, std::invoke(projection, a)); };
}

}  // namespace tolmer_gaps

#define TOLMER_BY_TEST(name)                                                                      \
  template <class Range, class Test, class Projection = identity>                                 \
  constexpr auto name(Range&& range, Test test, Projection projection = {}) {                     \
    return std::name(std::begin(range), std::end(range), tolmer_gaps::passing(projection, test)); \
  }
TOLMER_BY_TEST(all_of)
TOLMER_BY_TEST(any_of)
TOLMER_BY_TEST(none_of)
TOLMER_BY_TEST(find_if)
TOLMER_BY_TEST(count_if)
#undef TOLMER_BY_TEST

#define TOLMER_BY_ORDER(name)                                                                      \
  template <class Range, class Order = less, class Projection = identity>                          \
  constexpr auto name(Range&& range, Order order = {}, Projection projection = {}) {               \
    return std::name(std::begin(range), std::end(range), tolmer_gaps::through(projection, order)); \
  }
TOLMER_BY_ORDER(sort)
TOLMER_BY_ORDER(stable_sort)
TOLMER_BY_ORDER(is_sorted)
TOLMER_BY_ORDER(min_element)
TOLMER_BY_ORDER(max_element)
#undef TOLMER_BY_ORDER

#define TOLMER_IN_ORDER(name)                                    \
  template <class Range, class Value>                            \
  constexpr auto name(Range&& range, const Value& value) {       \
    return std::name(std::begin(range), std::end(range), value); \
  }
TOLMER_IN_ORDER(lower_bound)
TOLMER_IN_ORDER(upper_bound)
TOLMER_IN_ORDER(binary_search)
#undef TOLMER_IN_ORDER

template <class Range, class Value, class Projection = identity>
constexpr auto find(Range&& range, const Value& value, Projection projection = {}) {
  return std::find_if(std::begin(range), std::end(range), tolmer_gaps::equalTo(projection, value));
}
template <class Range, class Value, class Projection = identity>
constexpr auto count(Range&& range, const Value& value, Projection projection = {}) {
  return std::count_if(std::begin(range), std::end(range), tolmer_gaps::equalTo(projection, value));
}
template <class Range>
constexpr auto adjacent_find(Range&& range) {
  return std::adjacent_find(std::begin(range), std::end(range));
}
template <class Range>
constexpr void reverse(Range&& range) {
  std::reverse(std::begin(range), std::end(range));
}
template <class Range, class Value>
constexpr void replace(Range&& range, const Value& from, const Value& to) {
  std::replace(std::begin(range), std::end(range), from, to);
}
template <class Range, class Out>
constexpr void copy(Range&& range, Out out) {
  std::copy(std::begin(range), std::end(range), out);
}
template <class Range, class Out, class Change>
constexpr void transform(Range&& range, Out out, Change change) {
  std::transform(std::begin(range), std::end(range), out, change);
}
template <class Range>
constexpr auto minmax_element(Range&& range) {
  return std::minmax_element(std::begin(range), std::end(range));
}

}  // namespace ranges
}  // namespace std

#endif
