// What a field of foreign text looks like as a number, before anyone has said which mark is the
// decimal one.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tolmer {

struct NumberShape {
  enum class Marks : std::uint8_t {
    noNumber,
    plain,        // 12, 1e5
    point,        // 1.5, 1,234.5, 1,234,567: only a point can be the decimal mark
    comma,        // 1,5, 1.234,5, 1.234.567: only a comma can
    eitherPoint,  // 1.234: decimals, or thousands
    eitherComma   // 1,234
  };
  Marks marks = Marks::noNumber;
  bool groupedByMarks : 1 = false;   // 1,234.5 or 1.234,5: both marks, or several of one
  bool groupedByBlanks : 1 = false;  // 12 345 or 12'345
  bool percent : 1 = false;
  bool currency : 1 = false;
  bool bracketed : 1 = false;  // (5), which is -5 in accounts

  bool isNumber() const { return marks != Marks::noNumber; }
  // Whether it is a number with that decimal mark, or with any while that is open.
  bool fits(std::optional<char> decimalMark) const {
    if (!decimalMark || !isNumber()) return isNumber();
    return marks != (*decimalMark == '.' ? Marks::comma : Marks::point);
  }
};

NumberShape numberShape(std::string_view field);

enum class Percent { asWritten, divided };  // 12% is 12, or 0.12

// The number with that decimal mark, '.' or ','; the other one may divide thousands. nullopt where
// the field is no such number or no double can hold it.
std::optional<double> fieldNumber(std::string_view field, char decimalMark,
                                  Percent percent = Percent::asWritten);

// The day that is written as 2024-03-05, in days since 1899-12-30, as spreadsheets count. nullopt
// for other text: 5/3/2024 is another day in other countries.
std::optional<double> dayOfDate(std::string_view field);

}  // namespace tolmer
