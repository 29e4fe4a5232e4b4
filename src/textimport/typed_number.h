// Numbers as they are typed, and written out in all their digits.
#pragma once

#include <string>
#include <string_view>

namespace tolmer {

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

}  // namespace tolmer
