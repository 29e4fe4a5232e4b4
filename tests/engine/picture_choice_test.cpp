#include "engine/picture_choice.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "engine/picture_text.h"
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

TEST(FindFormatString, TheSignDependsOnTheOrder) {
  // A longer number behind the negative one makes room for its sign; a number behind it that is no
  // longer than the longest negative one takes the room back.
  EXPECT_EQ(columnFormat({-1, 12345678}, 4, 8, false, false, false), "0");
  EXPECT_EQ(columnFormat({12345678, -1}, 4, 8, false, false, false), "********");
  EXPECT_EQ(columnFormat({-1, 12345678, 1}, 4, 8, false, false, false), "********");
  EXPECT_EQ(columnFormat({-1, 12345678, 10}, 4, 8, false, false, false), "0");
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

}  // namespace
}  // namespace tolmer
