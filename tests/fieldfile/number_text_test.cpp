#include "fieldfile/number_text.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <random>
#include <string>

namespace tolmer {
namespace {

// As std::from_chars, which rounds once, reads them: decimals near a single, or halfway between
// two.
TEST(SingleFromText, isRoundedOnce) {
  std::mt19937_64 bits(1702);
  for (int i = 0; i < 100000; ++i) {
    const auto a = std::ldexp(static_cast<float>(bits() >> 40U), i % 50 - 40);
    const double halfway = (double{a} + std::nextafter(a, 1e30F)) / 2;
    for (const double number : {double{a}, -halfway}) {
      std::array<char, 64> text;
      const char* end = std::to_chars(text.data(), text.data() + text.size(), number,
                                      std::chars_format::fixed, i % 16)
                            .ptr;
      const std::string decimal(text.data(), static_cast<std::size_t>(end - text.data()));
      float expected = 0;
      std::from_chars(text.data(), end, expected);
      const auto read = singleFromText(decimal);
      ASSERT_TRUE(read) << decimal;
      ASSERT_EQ(std::bit_cast<int>(*read), std::bit_cast<int>(expected)) << decimal;
    }
  }
}

TEST(SingleFromText, needsOneDigitAndOnePoint) {
  for (const char* text :
       {"", "-", "+", ".", "-.", "1.2.3", "1,2", "--1", "+-1", "1 ", "0x1", "inf"})
    EXPECT_FALSE(singleFromText(text)) << text;
  EXPECT_EQ(singleFromText("5."), 5.0F);
  EXPECT_EQ(singleFromText("+.5"), 0.5F);
  EXPECT_EQ(singleFromText("-1.5e3"), -1500.0F);
  EXPECT_TRUE(std::signbit(*singleFromText("-0.0")));
}

}  // namespace
}  // namespace tolmer
