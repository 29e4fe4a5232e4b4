#include "engine/picture_text.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>

#include "support/pairs_in.h"

namespace tolmer {
namespace {

constexpr const char* grouped = "###,###,###,###,##0";

TEST(NumberPicture, RoundsTheSevenDigitTextOfASingleHalfAway) {
  // In seven digits 0.004999999888 is 0.005, 2.674999952 is 2.675 and 0.49999997 is 0.5; behind
  // them there are zeros, and a tie in the seventh digit goes away from zero.
  for (const auto& [number, text] : test::pairsIn(R"(
      0 by 0 -> 0 | 0 by 0.000 -> 0.000 | 0 by .0000 -> .0000 | 0 by 0.000E+0 -> 0.000E+0
      0.5 by 0 -> 1 | -0.5 by 0 -> -1 | 2.5 by 0 -> 3 | -0.4 by 0 -> 0 | -0.0 by 0.0 -> 0.0
      -0.004 by 0.00 -> 0.00 | 0.005 by 0.00 -> 0.01 | 2.675 by 0.00 -> 2.68 | 0.49999997 by 0 -> 1
      0.9999 by 0.000 -> 1.000 | 999.999 by 0 -> 1000 | 999.999 by 0.0 -> 1000.0
      0.06 by 0.0 -> 0.1 | 0.04 by 0.0 -> 0.0 | 0.00049 by 0.000 -> 0.000 | 0.1234 by .0000 -> .1234
      -0.1234 by .000 -> -.123 | 1.5 by .0 -> 1.5 | 1234567 by ###,###,###,###,##0 -> 1,234,567
      123456.7 by ###,###,###,###,##0.00 -> 123,456.70
      -1234.5 by ###,###,###,###,##0.00 -> -1,234.50 | 999.996 by ###,###,###,###,##0.00 -> 1,000.00
      999 by ###,###,###,###,##0 -> 999 | 16777216 by 0 -> 16777220 | 1234566.5 by 0 -> 1234567
      1e30 by ###,###,###,###,##0 -> 1,000,000,000,000,000,000,000,000,000,000
      1e-30 by 0.000E+0 -> 1.000E-30 | 123456 by 0.000E+0 -> 1.235E+5
      9.9996 by 0.000E+0 -> 1.000E+1 | -0.00012345 by 0.00E+00 -> -1.23E-04
      1e12 by 0.00E+00 -> 1.00E+12 | 12 by 0.## -> 12. | 12.345 by 0.## -> 12.35
      7 by ******** -> ********
      )")) {
    const std::string picture = number.substr(number.find(" by ") + 4);
    EXPECT_EQ(formatNumber(std::strtof(number.c_str(), nullptr), picture), text) << number;
  }
  EXPECT_EQ(formatNumber(0.25F, ""), "0.25");
}

TEST(NumberPicture, ADoubleHasFifteenDigits) {
  EXPECT_EQ(formatNumber(2.675, "0.00"), "2.68");
  EXPECT_EQ(formatNumber(1.005, "0.00"), "1.01");
  EXPECT_EQ(formatNumber(16777216.0, "0"), "16777216");
  EXPECT_EQ(formatNumber(0.1 + 0.2, "0.0################"), "0.3");
  EXPECT_EQ(formatNumber(123456789012345678.0, "0"), "123456789012346000");
  EXPECT_EQ(formatNumber(5e-324, "0.00E+00"), "4.94E-324");
  EXPECT_EQ(formatNumber(1.7976931348623157e308, "0.00E+00"), "1.80E+308");
  EXPECT_EQ(formatNumber(500, "0"), "500");
}

TEST(NumberPicture, WhatIsNoNumberIsNotAvailable) {
  constexpr float infinity = std::numeric_limits<float>::infinity();
  for (const char* picture : {"0", "0.000", grouped, "0.000E+0", ""}) {
    EXPECT_EQ(formatNumber(std::numeric_limits<float>::quiet_NaN(), picture), "NA");
    EXPECT_EQ(formatNumber(infinity, picture), "NA");
    EXPECT_EQ(formatNumber(-double{infinity}, picture), "NA");
  }
}

TEST(GeneralText, IsTheShortestTextOfSevenDigits) {
  for (const auto& [number, text] : test::pairsIn(R"(
      0 -> 0 | -0.0 -> 0 | 0.5 -> 0.5 | -0.25 -> -0.25 | 12.34 -> 12.34 | 0.00001 -> 0.00001
      1e-8 -> 1E-08 | 1.5e-12 -> 1.5E-12 | 9999999 -> 9999999 | 1e7 -> 1E+07
      -12345678 -> -1.234568E+07 | 1e30 -> 1E+30 | 3.4028235e38 -> 3.402823E+38
      1e-45 -> 1.401298E-45
      )"))
    EXPECT_EQ(generalText(std::strtof(number.c_str(), nullptr)), text) << number;
  EXPECT_EQ(generalText(1.0F / 3), "0.3333333");
  EXPECT_EQ(generalText(2.0F / 3), "0.6666667");
  EXPECT_EQ(generalText(1.0F / 30), "3.333334E-02") << "eight decimals would be too many";
}

TEST(GeneralText, IsTheShortestTextOfFifteenDigitsForADouble) {
  EXPECT_EQ(generalText(1.0 / 3), "0.333333333333333");
  EXPECT_EQ(generalText(0.1 + 0.2), "0.3");
  EXPECT_EQ(generalText(123456789012345.0), "123456789012345");
  EXPECT_EQ(generalText(1e15), "1E+15");
  EXPECT_EQ(generalText(1.5e-300), "1.5E-300");
}

}  // namespace
}  // namespace tolmer
