// Numbers as they are typed into cells, kept, and shown.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "state/analysis_state.h"

namespace tolmer {

// Decimals that a column can show: a double has 15 digits that are all its own.
inline constexpr Int16 maxDecimals = 15;

// What stands between the blanks and tabs at both ends.
std::string_view withoutOuterBlanks(std::string_view text);

struct NumberReading {
  enum class Kind { number, tooLarge, noNumber };
  Kind kind = Kind::noNumber;
  double number = 0;
};

// Digits with an optional sign, point and exponent ("-1.5e3", "+.5", "5."), blanks around them,
// rounded once to the nearest double whatever the locale. What is too small for a double is 0.
NumberReading readNumber(std::string_view text);

// The fewest digits that read back to the same bits; with an exponent only from 1e15 on and below
// 0.00001.
std::string exactText(double number);

// With so many decimals, rounded half away from zero from its first 15 digits. Numbers from 1e15 on
// have no decimals of their own and are shown exactly instead.
std::string shownNumber(double number, int decimals);

}  // namespace tolmer
