#include "base/portable_math.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

#include <gtest/gtest.h>

namespace tolmer {
namespace {

// A sequence of numbers from 0 to 1 that every system counts alike.
class Numbers {
 public:
  double next() {
    state_ = state_ * 6364136223846793005U + 1442695040888963407U;
    return static_cast<double>(state_ >> 11) * 0x1p-53;
  }

 private:
  std::uint64_t state_ = 1;
};

struct Function {
  const char* name;
  double (*value)(double);
  long double (*precise)(long double);
  double least, most;  // of its argument
  double error;        // in units of the last place
  std::uint64_t print;
};

double powerOf(double x) { return portable::pow(x, 2.5); }
double cosine(double x) { return portable::cosineOfTurns(x / 8); }
double sine(double x) { return portable::sineOfTurns(x / 8); }
constexpr long double eighth = 0.785398163397448309615660845819875721L;

const Function functions[] = {
    {"exp", portable::exp, [](long double x) { return std::exp(x); }, -700, 700, 0.51,
     0xD021F3CC6D2EEBF8},
    {"log", portable::log, [](long double x) { return std::log(x); }, 0, 3, 0.51,
     0xDA7ED595AF6599DB},
    {"log1p", portable::log1p, [](long double x) { return std::log1p(x); }, -1, 1, 0.51,
     0x2A98BC9035D2FAA1},
    {"log10", portable::log10, [](long double x) { return std::log10(x); }, 0, 1e9, 0.51,
     0xD6D4C4E10BA0A4D0},
    {"pow", powerOf, [](long double x) { return x * x * std::sqrt(x); }, 0, 1e100, 0.51,
     0x05D7744D70274794},
    {"cosine", cosine, [](long double x) { return std::cos(eighth * x); }, -1, 1, 1,
     0x786BAEFAFA20B9AD},
    {"sine", sine, [](long double x) { return std::sin(eighth * x); }, -1, 1, 1,
     0xB12FBBE64AA82C47},
    {"erfc", portable::erfc, [](long double x) { return std::erfc(x); }, -3, 26, 5,
     0x8E4F55D3E774E42B}};

// The prints are those of the bits of all values: the same on every system.
TEST(PortableMath, GivesTheSameNearlyExactBitsEverywhere) {
  for (const Function& function : functions) {
    Numbers numbers;
    std::uint64_t print = 0;
    double worst = 0;
    for (int i = 0; i < 20000; ++i) {
      const double x = function.least + (function.most - function.least) * numbers.next();
      const double value = function.value(x);
      const long double precise = function.precise(x);
      const double unit = std::nextafter(std::fabs(value), INFINITY) - std::fabs(value);
      worst = std::max(worst, static_cast<double>(std::fabs(value - precise)) / unit);
      print = (print ^ std::bit_cast<std::uint64_t>(value)) * 0x9E3779B97F4A7C15U;
    }
    EXPECT_EQ(print, function.print) << function.name << std::hex << " 0x" << print;
    // Elsewhere the C library's functions of long double are no better.
    if (std::numeric_limits<long double>::digits == 64) {
      EXPECT_LE(worst, function.error) << function.name;
    }
  }
}

TEST(PortableMath, IsExactWhereAResultIsAndKnowsTheEnds) {
  double ten = 1;
  for (int n = 0; n <= 22; ++n, ten *= 10) {
    EXPECT_EQ(portable::pow(10, n), ten);
    EXPECT_EQ(portable::log10(ten), n);
  }
  EXPECT_EQ(portable::pow(-2, 3), -8);
  EXPECT_EQ(portable::pow(-2, -2), 0.25);
  EXPECT_TRUE(std::isnan(portable::pow(-2, 0.5)));
  EXPECT_EQ(portable::pow(1e300, 1e300), INFINITY);
  EXPECT_EQ(portable::pow(0.5, 1100), 0);
  EXPECT_EQ(portable::exp(-745), 0x1p-1074);
  EXPECT_EQ(portable::exp(710), INFINITY);
  EXPECT_EQ(portable::exp(-INFINITY), 0);
  EXPECT_TRUE(std::isnan(portable::exp(NAN)));
  EXPECT_EQ(portable::log(0), -INFINITY);
  EXPECT_TRUE(std::isnan(portable::log(-1)));
  EXPECT_NEAR(portable::log(0x1p-1074), -744.44007192138126, 1e-13);
  EXPECT_EQ(portable::log1p(1e-300), 1e-300);
  EXPECT_EQ(portable::log1p(-1), -INFINITY);
  EXPECT_EQ(portable::cosineOfTurns(0.25), 0);
  EXPECT_EQ(portable::sineOfTurns(-1.75), 1);
  EXPECT_EQ(portable::erfc(0), 1);
  EXPECT_EQ(portable::erfc(-30), 2);
}

}  // namespace
}  // namespace tolmer
