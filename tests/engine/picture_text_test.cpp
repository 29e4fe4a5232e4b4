#include "engine/picture_text.h"

#include <gtest/gtest.h>

#include <limits>

namespace tolmer {
namespace {

constexpr const char* grouped = "###,###,###,###,##0";
constexpr const char* groupedCents = "###,###,###,###,##0.00";

TEST(NumberPicture, RoundsTheSevenDigitTextOfASingleHalfAway) {
  struct Case {
    float value;
    const char* picture;
    const char* text;
  };
  for (const auto& [value, picture, text] : std::initializer_list<Case>{
           {0, "0", "0"},
           {0, "0.000", "0.000"},
           {0, ".0000", ".0000"},
           {0, "0.000E+0", "0.000E+0"},
           {0.5F, "0", "1"},
           {-0.5F, "0", "-1"},
           {2.5F, "0", "3"},
           {-0.4F, "0", "0"},
           {-0.0F, "0.0", "0.0"},
           {-0.004F, "0.00", "0.00"},
           {0.005F, "0.00", "0.01"},  // 0.004999999888..., in seven digits 0.005
           {2.675F, "0.00", "2.68"},  // 2.674999952...
           {0.49999997F, "0", "1"},   // in seven digits 0.5
           {0.9999F, "0.000", "1.000"},
           {999.999F, "0", "1000"},
           {999.999F, "0.0", "1000.0"},
           {0.06F, "0.0", "0.1"},
           {0.04F, "0.0", "0.0"},
           {0.00049F, "0.000", "0.000"},
           {0.1234F, ".0000", ".1234"},
           {-0.1234F, ".000", "-.123"},
           {1.5F, ".0", "1.5"},
           {1234567, grouped, "1,234,567"},
           {123456.7F, groupedCents, "123,456.70"},
           {-1234.5F, groupedCents, "-1,234.50"},
           {999.996F, groupedCents, "1,000.00"},
           {999, grouped, "999"},
           {16777216, "0", "16777220"},   // a single shows seven digits, then zeros
           {1234566.5F, "0", "1234567"},  // a tie in the seventh digit goes away from zero
           {1e30F, grouped, "1,000,000,000,000,000,000,000,000,000,000"},
           {1e-30F, "0.000E+0", "1.000E-30"},
           {123456, "0.000E+0", "1.235E+5"},
           {9.9996F, "0.000E+0", "1.000E+1"},
           {-0.00012345F, "0.00E+00", "-1.23E-04"},
           {1e12F, "0.00E+00", "1.00E+12"},
           {12, "0.##", "12."},
           {12.345F, "0.##", "12.35"},
           {7, "********", "********"},
           {0.25F, "", "0.25"},
       })
    EXPECT_EQ(formatNumber(value, picture), text) << value << " by " << picture;
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
  struct Case {
    float value;
    const char* text;
  };
  for (const auto& [value, text] : std::initializer_list<Case>{
           {0, "0"},
           {-0.0F, "0"},
           {0.5F, "0.5"},
           {-0.25F, "-0.25"},
           {12.34F, "12.34"},
           {1.0F / 3, "0.3333333"},
           {2.0F / 3, "0.6666667"},
           {1.0F / 30, "3.333334E-02"},  // eight decimals would be too many
           {0.00001F, "0.00001"},
           {1e-8F, "1E-08"},
           {1.5e-12F, "1.5E-12"},
           {9999999, "9999999"},
           {1e7F, "1E+07"},
           {-12345678, "-1.234568E+07"},
           {1e30F, "1E+30"},
           {3.4028235e38F, "3.402823E+38"},
           {1e-45F, "1.401298E-45"},
       })
    EXPECT_EQ(generalText(value), text);
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
