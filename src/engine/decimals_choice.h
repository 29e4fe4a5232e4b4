// Choosing the number picture that shows a value, or a whole column of values, in a fixed width.
#pragma once

#include <span>
#include <string>

namespace tolmer {

// The picture for the values sValues(1..iCount); element 0 is not looked at.
//
// iDigits: significant digits aimed at. iWidth: the widest text allowed. bDigitsMode: decimals
// follow from the significant digits, otherwise from the values' own general text. bWholeCheck: a
// value near a whole number needs no decimals. bCommas: thousands may be grouped. bExponent:
// scientific notation may stand as the last resort. Where nothing fits, iWidth asterisks.
std::string FindFormatString(std::span<const float> sValues, int iCount, int iDigits, int iWidth,
                             bool bDigitsMode, bool bWholeCheck, bool bCommas, bool bExponent);

// The picture for one value, with flags as above. "0" for a value that rounds to zero in the width,
// and for one that is not finite.
std::string FindFormatStringValue(float sValue, int iDigits, int iWidth, bool bDigitsMode,
                                  bool bWholeCheck, bool bCommas, bool bExponent);

}  // namespace tolmer
