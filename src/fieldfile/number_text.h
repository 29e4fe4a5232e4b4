// Numbers as course files write them, whatever the locale.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tolmer {

// A whole number with an optional sign, within 16 signed bits; nullopt for anything else.
std::optional<std::int16_t> integerFromText(std::string_view text);

// Digits with an optional sign, point and exponent ("-1.5e3", "+.5"), rounded once to single. A
// value below the smallest single is 0; a value above the largest one, "inf", "nan" and anything
// else is nullopt.
std::optional<float> singleFromText(std::string_view text);

}  // namespace tolmer
