// What the C++ library of emscripten 3.1.6 (libc++ 13) lacks of C++20, seen by every source of the
// browser's build. Empty with a newer one.
#pragma once
#include <version>
#if defined(_LIBCPP_VERSION) && _LIBCPP_VERSION < 14000
#include <algorithm>
#include <charconv>
#include <functional>
#include <iterator>

namespace std {

template <class To, class From>
constexpr To bit_cast(const From& from) noexcept {
  return __builtin_bit_cast(To, from);
}

// In EmscriptenLibrary.cpp.
from_chars_result from_chars(const char* first, const char* last, double& value,
                             chars_format form = chars_format::general);
from_chars_result from_chars(const char* first, const char* last, float& value,
                             chars_format form = chars_format::general);
to_chars_result to_chars(char* first, char* last, double value);
to_chars_result to_chars(char* first, char* last, float value);
to_chars_result to_chars(char* first, char* last, double value, chars_format form);
to_chars_result to_chars(char* first, char* last, float value, chars_format form);
to_chars_result to_chars(char* first, char* last, double value, chars_format form, int precision);

namespace ranges {

// A test or an order of what the projection makes of each.
template <class Function, class Projection>
auto through(Function function, Projection projection) {
  return [function, projection](const auto&... each) {
    return std::invoke(function, std::invoke(projection, each)...);
  };
}

// Each by the algorithm of the same name on iterators. What is sorted has an order by itself.
#define TOLMER_BY_FUNCTION(name)                                                                 \
  template <class Range, class Function = less, class Projection = identity>                     \
  constexpr auto name(Range&& range, Function function = {}, Projection projection = {}) {       \
    return std::name(std::begin(range), std::end(range), ranges::through(function, projection)); \
  }
TOLMER_BY_FUNCTION(all_of)
TOLMER_BY_FUNCTION(any_of)
TOLMER_BY_FUNCTION(none_of)
TOLMER_BY_FUNCTION(find_if)
TOLMER_BY_FUNCTION(count_if)
TOLMER_BY_FUNCTION(sort)
TOLMER_BY_FUNCTION(stable_sort)
TOLMER_BY_FUNCTION(is_sorted)
TOLMER_BY_FUNCTION(min_element)
TOLMER_BY_FUNCTION(max_element)
#undef TOLMER_BY_FUNCTION

#define TOLMER_BY_VALUE(name)                                                          \
  template <class Range, class Value, class Projection = identity>                     \
  constexpr auto name(Range&& range, const Value& value, Projection projection = {}) { \
    return ranges::name##_if(                                                          \
        range, [&value](const auto& a) { return a == value; }, projection);            \
  }
TOLMER_BY_VALUE(find)
TOLMER_BY_VALUE(count)
#undef TOLMER_BY_VALUE

#define TOLMER_AS_IT_IS(name)                                      \
  template <class Range, class... More>                            \
  constexpr auto name(Range&& range, const More&... more) {        \
    return std::name(std::begin(range), std::end(range), more...); \
  }
TOLMER_AS_IT_IS(lower_bound)
TOLMER_AS_IT_IS(upper_bound)
TOLMER_AS_IT_IS(binary_search)
TOLMER_AS_IT_IS(adjacent_find)
TOLMER_AS_IT_IS(minmax_element)
TOLMER_AS_IT_IS(reverse)
TOLMER_AS_IT_IS(replace)
TOLMER_AS_IT_IS(copy)
TOLMER_AS_IT_IS(transform)
#undef TOLMER_AS_IT_IS

}  // namespace ranges
}  // namespace std

#endif
