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
#include <string>

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

template <class Real>
from_chars_result read(const char* first, const char* last, Real& value, chars_format form) {
  const char* const sign = first != last && *first == '-' ? first + 1 : first;
  const bool isWord = sign != last && std::strchr("iInN", *sign) && *sign;  // inf, nan
  const char* end = isWord ? last : decimalEnd(first, last, form);
  if (end == first) return {first, errc::invalid_argument};
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

inline to_chars_result put(char* first, char* last, const string& text) {
  if (last - first < static_cast<ptrdiff_t>(text.size())) return {last, errc::value_too_large};
  return {std::copy(text.begin(), text.end(), first), errc()};
}

inline string printed(double value, chars_format form, int precision) {
  const char* const picture = form == chars_format::fixed        ? "%.*f"
                              : form == chars_format::scientific ? "%.*e"
                                                                 : "%.*g";
  string text(512, '\0');  // a first try; the longest has 308 digits and those asked for
  for (;;) {
    const auto length =
        static_cast<size_t>(std::snprintf(text.data(), text.size(), picture, precision, value));
    const bool fits = length < text.size();
    text.resize(fits ? length : length + 1);
    if (fits) return text;
  }
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

// Without the noughts that end the fraction, and the point if nothing stands behind it.
inline string withoutEndNoughts(const string& text) {
  const auto mark = text.find('e');
  const auto point = text.find('.');
  if (point == string::npos) return text;
  auto end = text.find_last_not_of('0', mark - 1) + 1;
  if (end == point + 1) end = point;
  return text.substr(0, end) + text.substr(mark);
}

template <class Real>
to_chars_result writeShortest(char* first, char* last, Real value, const chars_format* asked) {
  if (!std::isfinite(value)) return put(first, last, printed(value, chars_format::general, 1));
  const string text = withoutEndNoughts(shortest(value));
  const auto mark = text.find('e');
  const int exponent = std::atoi(text.c_str() + mark + 1);
  const auto notDigits = std::count(text.begin(), text.begin() + mark, '.') + std::signbit(value);
  const int digits = static_cast<int>(mark - notDigits);
  const int decimals = std::max(0, digits - 1 - exponent);
  const auto fixed = [&] { return printed(value, chars_format::fixed, decimals); };
  if (!asked) {  // the shorter one, fixed if they are alike
    const string whole = fixed();
    return put(first, last, whole.size() <= text.size() ? whole : text);
  }
  const bool isFixed = *asked == chars_format::fixed ||
                       (*asked == chars_format::general && exponent >= -4 && exponent < 6);
  return put(first, last, isFixed ? fixed() : text);
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
