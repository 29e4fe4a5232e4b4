// Numbers as text: by a picture such as "###,##0.00", or in the general form.
//
// Both start from the decimal text of the stored value: its exact binary value rounded half away
// from zero to 7 significant digits for a single, to 15 for a double. A picture rounds that text
// once more, half away from zero. So 2.675 as a single shows as 2.68, and a single that came out of
// arithmetic as 0.4999999701976776 shows as 0.5.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tolmer {

// A picture taken apart, which is worth while for a column.
struct NumberPicture {
  NumberPicture() = default;
  // The text must stay as long as this.
  explicit NumberPicture(std::string_view text);

  std::string_view itself;  // of asterisks
  bool general = false;
  bool isShort = false;   // and none of asterisks, general or scientific
  int leftZeros = 0;      // digits that always show left of the point
  int decimals = 0;       // most digits right of the point
  int fixedDecimals = 0;  // those of them that always show
  int exponentDigits = 0;
  bool point = false;
  bool grouped = false;
  bool scientific = false;
};

// The value by the picture. In a picture "0" is a digit that always shows, "#" one that shows if
// there is one, "," groups thousands, "." is the point, "E+" with zeros behind it the exponent with
// at least that many digits. A picture of asterisks shows as it is; an empty one stands for the
// general form. A value that rounds to zero has no minus sign; one that is not finite is "NA".
std::string formatNumber(float value, const NumberPicture& picture);
std::string formatNumber(double value, const NumberPicture& picture);
std::string formatNumber(float value, std::string_view picture);
std::string formatNumber(double value, std::string_view picture);
std::string formatNumber(int value, std::string_view picture);

// The shortest text with up to 7 (15) significant digits: a zero before a bare point, no zeros at
// the end, and scientific notation with at least two exponent digits ("1.5E-08", "1E+07") where
// more than 7 (15) digits would stand on one side of the point. Not finite: "NA".
std::string generalText(float value);
std::string generalText(double value);

// The value number / 10^places; number is at most 10^7.
struct SevenDigits {
  std::uint32_t number = 0;
  int places = 0;

  // Takes zeros away from the end of the number as far as they are decimals beyond `least`.
  void dropZeros(int least = 0) {
    for (; places > least && number % 10 == 0; number /= 10) --places;
  }
  // Half away from zero, to so many decimals; fewer stay as they are.
  void roundTo(int decimals) {
    for (; places > decimals + 1; --places) number /= 10;
    if (places > decimals) number = (number + 5) / 10;
    places = std::min(places, decimals);
  }
};

// a rounded to seven significant digits, for 0.001 <= a < 10000000. Nothing for other values, and
// nothing near a tie, where it takes the exact binary value to tell which way to round.
std::optional<SevenDigits> sevenDigits(float a);

}  // namespace tolmer
