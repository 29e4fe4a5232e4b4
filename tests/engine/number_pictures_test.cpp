// The picture that is chosen for a number or a column, and the text by a picture.
#include <gtest/gtest.h>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "engine/decimals_choice.h"
#include "engine/number_format.h"
#include "support/pairs_in.h"
#include "support/regression_data.h"

namespace tolmer {
namespace {

constexpr const char* whole = "###,###,###,###,##0";

std::string grouped(int decimals) {
  std::string picture = whole;
  picture += '.';
  picture.append(static_cast<std::size_t>(decimals), '0');
  return picture;
}

std::string columnFormat(std::vector<float> values, int iDigits = 4, int iWidth = 8,
                         bool bDigitsMode = false, bool bCommas = true, bool bExponent = true) {
  values.insert(values.begin(), 12345.678F);  // element 0 is not looked at
  return FindFormatString(values, static_cast<int>(values.size()) - 1, iDigits, iWidth, bDigitsMode,
                          true, bCommas, bExponent);
}

TEST(FindFormatString, FallsBackAsTheWidthRunsOut) {
  EXPECT_EQ(columnFormat({}), whole);
  EXPECT_EQ(columnFormat({3.0002F, 4.9997F}), whole);  // within the tolerance of whole numbers
  EXPECT_EQ(columnFormat({123.25F, -123.25F}), grouped(2));
  EXPECT_EQ(columnFormat({1234.5F, -999.25F}), "0.00");  // the comma would be the ninth character
  EXPECT_EQ(columnFormat({12345.125F}), "0.00");         // decimals are cut to the width
  EXPECT_EQ(columnFormat({1234567}), "0");               // no room for the commas
  EXPECT_EQ(columnFormat({-1234567}), "0");
  EXPECT_EQ(columnFormat({1234567.5F}), "0");
  EXPECT_EQ(columnFormat({1234567936}), "0.000E+0");
  EXPECT_EQ(columnFormat({-1234567936}), "0.00E+0");
  EXPECT_EQ(columnFormat({1e12F}), "0.00E+00");
  EXPECT_EQ(columnFormat({1234567936}, 4, 8, false, true, false), "********");
  EXPECT_EQ(columnFormat({0.123456F, -0.5F}, 4, 5), ".000");
  EXPECT_EQ(columnFormat({0.125F}, 4, 4), ".000");
}

TEST(FindFormatString, CountsSignificantDigitsInDigitsMode) {
  EXPECT_EQ(columnFormat({12.345F, 5}, 4, 8, true), grouped(2));
  EXPECT_EQ(columnFormat({0.5F, 0.01F}, 4, 8, true), grouped(4));
  EXPECT_EQ(columnFormat({12.5F, 0.01F}, 4, 8, true), grouped(3));
  EXPECT_EQ(columnFormat({12345.5F, -4}, 4, 8, true), whole);
  EXPECT_EQ(columnFormat({100, 200}, 4, 8, true), whole);
}

// The same column by column as plain as it can be: every decimal from a text.
std::string plainColumnFormat(const std::vector<float>& values, int iDigits, int W,
                              bool bWholeCheck) {
  float largest = -1.0E10F;
  int iNegLeft = 0, L = 0, D = 0, P = 0, S = 0;
  for (const float x : values) {
    const float a = std::fabs(x);
    const int l = a < 1 ? 1 : static_cast<int>(std::floor(std::log10(double{a}))) + 1;
    if (x < 0) iNegLeft = std::max(iNegLeft, l);
    if (a > largest)
      S = x < 0 || l == iNegLeft ? 1 : 0;
    else if (l == iNegLeft)
      S = 1;
    largest = std::max(largest, a);
    int d = 0;
    if (!bWholeCheck || std::fabs(a - std::floor(a + 0.0005)) >= 0.0005) {
      P = 1;
      d = std::max(static_cast<int>(generalText(a).size()) - l - 1, 1);
      if (d > 2)
        for (int i = iDigits; i >= 1; --i) {
          const double shifted = a * std::pow(10.0, i);
          if (std::fabs(shifted - std::floor(shifted + 0.5)) < std::pow(10.0, -(i + 2))) d = i;
        }
    }
    L = std::max(L, l);
    D = std::max(D, d);
  }
  if (P == 1) D = std::min(D, iDigits);
  const int C = (L - 1) / 3;
  const auto zeros = [](int count) { return std::string(static_cast<std::size_t>(count), '0'); };
  const std::string decimals = P == 1 && D > 0 ? "." + zeros(D) : "";
  if (L + P + D + C + S <= W) return whole + decimals;
  if (L + P + D + S <= W) return "0" + decimals;
  if (largest < 1 && D + P + S <= W) return "." + zeros(D);
  if (L + P + S < W) return largest < 1 ? "." + zeros(W - 1 - S) : "0." + zeros(W - L - 1 - S);
  if (L + S <= W) return "0";
  const int X = L > 10 ? 2 : 1;
  return "0." + zeros(W - 4 - S - X) + "E+" + zeros(X);
}

TEST(FindFormatString, AgreesWithThePlainRuleForEveryKindOfColumn) {
  SteadyNoise noise(7);
  for (int round = 0; round < 20000; ++round) {
    std::vector<float> values;
    const double size = std::pow(10.0, std::floor(16 * noise()));
    const double grain = std::pow(10.0, std::floor(12 * noise()) - 2);
    for (int i = 0; i < 1 + round % 4; ++i) {
      const double value = 2 * size * (round % 2 == 0 ? noise() : noise() + 0.5);
      values.push_back(
          static_cast<float>(round % 3 == 0 ? value : std::round(value / grain) * grain));
    }
    const int iDigits = 3 + round % 2;
    const int iWidth = 7 + round % 3;
    const bool bWholeCheck = round % 5 != 0;
    const std::string plain = plainColumnFormat(values, iDigits, iWidth, bWholeCheck);
    values.insert(values.begin(), 0);
    ASSERT_EQ(FindFormatString(values, static_cast<int>(values.size()) - 1, iDigits, iWidth, false,
                               bWholeCheck, true, true),
              plain)
        << generalText(values[1]) << " and " << values.size() - 2 << " more";
  }
}

TEST(FindFormatStringValue, ShowsAValueInItsSignificantDigits) {
  // Behind "or" in a table with the exponent form, otherwise there as everywhere.
  for (const auto& [number, pictures] : test::pairsIn(R"(
      0 -> 0 | 3e-9 -> 0 | 1 -> ###,###,###,###,##0.000 | -1 -> ###,###,###,###,##0.000
      12.345 -> ###,###,###,###,##0.00 | 1234.5 -> ###,###,###,###,##0
      12345.6 -> ###,###,###,###,##0 | 123456 -> ###,###,###,###,##0 | -123456 -> 0 | 1234567 -> 0
      12345678 -> 0 | 123456792 -> ******** or 0.000E+0 | -123456792 -> ******** or 0.00E+0
      1e12 -> ******** or 0.00E+00 | 0.5 -> ###,###,###,###,##0.0000
      0.012 -> ###,###,###,###,##0.00000 | 0.0012 -> ###,###,###,###,##0.000000 | -0.0012 -> .000000
      0.00012 -> .0000000 | 0.00001 -> .0000000 | -0.00001 -> .000000
      )")) {
    const float value = std::strtof(number.c_str(), nullptr);
    const auto cut = pictures.find(" or ");
    EXPECT_EQ(FindFormatStringValue(value, 4, 8, true, false, true, false), pictures.substr(0, cut))
        << number;
    EXPECT_EQ(FindFormatStringValue(value, 4, 8, true, false, true, true),
              cut == pictures.npos ? pictures : pictures.substr(cut + 4))
        << number;
  }
}

TEST(FindFormatStringValue, KnowsWholeNumbersAndTheTextOfAValue) {
  EXPECT_EQ(FindFormatStringValue(12, 4, 8, true, true, true, true), whole);
  EXPECT_EQ(FindFormatStringValue(12.0001F, 4, 8, true, true, true, true), whole);
  EXPECT_EQ(FindFormatStringValue(12.001F, 4, 8, true, true, true, true), grouped(2));
  EXPECT_EQ(FindFormatStringValue(1.25F, 4, 8, false, true, true, true), grouped(2));
  EXPECT_EQ(FindFormatStringValue(-0.25F, 4, 8, false, true, true, true), grouped(2));
  EXPECT_EQ(FindFormatStringValue(1.0F / 3, 4, 8, false, true, true, true), grouped(4));
}

TEST(NumberFormat, ValuesThatAreNotFiniteDoNoHarm) {
  constexpr float infinity = std::numeric_limits<float>::infinity();
  constexpr float nan = std::numeric_limits<float>::quiet_NaN();
  for (const bool digitsMode : {true, false})
    for (const float value : {infinity, -infinity, nan}) {
      EXPECT_EQ(FindFormatStringValue(value, 4, 8, digitsMode, true, true, true), "0");
      const std::string picture = columnFormat({1.5F, value, -2}, 4, 8, digitsMode);
      EXPECT_EQ(formatNumber(value, picture), "NA");
    }
  EXPECT_EQ(formatNumber(infinity, "********"), "NA");
  EXPECT_EQ(columnFormat({3.4e38F}), "0.00E+00");
}

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
  for (const char* picture : {"0", "0.000", whole, "0.000E+0", ""}) {
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
