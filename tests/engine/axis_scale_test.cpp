#include "engine/axis_scale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>

#include "support/pairs_in.h"
#include "support/regression_data.h"

namespace tolmer {
namespace {

TEST(ComputeScale, PrintsItsTable) {
  // A fifth as a single is a little more than a fifth, but 1 divided by it is 5 in singles.
  for (const auto& [range, expected] : test::pairsIn(R"(
      0 10 -> 0 2 6 | 3 3 -> 3 1 5 | 5 4 -> 5 1 5 | 0 1 -> 0 0.2 6 | 0 1.9 -> 0 0.2 10
      0 2 -> 0 0.5 5 | 0 4.99 -> 0 0.5 10 | 0 5 -> 0 1 6 | 0 9.99 -> 0 1 10 | -1 1 -> -1 0.5 5
      -3.2 4.1 -> -4 1 9 | 72.5 115.9 -> 70 5 10 | 1999 2003 -> 1999 0.5 9
      0.599999 3 -> 0.5 0.5 6 | 1e-30 3e-30 -> 1e-30 5e-31 5 | -1e30 1e30 -> -1e30 5e29 5
      )")) {
    std::istringstream numbers(range + " " + expected);
    float low = 0, high = 0, minimum = 0, step = 0;
    int steps = 0;
    ASSERT_TRUE(numbers >> low >> high >> minimum >> step >> steps) << range;
    const AxisScale scale = ComputeScale(low, high);
    EXPECT_EQ(scale.sAxisMin, minimum) << range;
    EXPECT_EQ(scale.sStep, step) << range;
    EXPECT_EQ(scale.iSteps, steps) << range;
  }
}

TEST(ComputeScale, ALowValueJustBelowAStepStandsForTheStep) {
  // 1 per cent of a step is forgiven, more is not.
  EXPECT_EQ(ComputeScale(1.985F, 11.5F).sAxisMin, 1);
  EXPECT_EQ(ComputeScale(1.995F, 11.5F).sAxisMin, 2);
}

TEST(ComputeScale, TheAxisHoldsTheRangeInFourToTenSteps) {
  SteadyNoise noise(3);
  for (int round = 0; round < 10000; ++round) {
    const double size = std::pow(10.0, 60 * noise());
    const auto low = static_cast<float>(noise() * size);
    const auto high = static_cast<float>(low + (noise() + 0.51) * size);
    const AxisScale scale = ComputeScale(low, high);
    const float steps = (high - low) / scale.sStep;
    ASSERT_GE(steps, 4 * 0.99999F) << low << " to " << high;
    ASSERT_LE(steps, 10 * 1.00001F) << low << " to " << high;
    ASSERT_LE(scale.sAxisMin, low + 0.0101F * scale.sStep);
    ASSERT_GT(scale.sAxisMin, low - 1.0001F * scale.sStep);
    ASSERT_GE(scale.sAxisMin + static_cast<float>(scale.iSteps) * scale.sStep,
              high - 0.001F * scale.sStep);
  }
}

TEST(ComputeScale, RangesWithoutAScaleGetFiveUnitSteps) {
  constexpr float largest = std::numeric_limits<float>::max();
  constexpr float nan = std::numeric_limits<float>::quiet_NaN();
  for (const auto& [low, high] : std::initializer_list<std::pair<float, float>>{
           {-largest, largest}, {nan, 1}, {0, nan}, {0, 1e-45F}, {0, 2 * largest}}) {
    const AxisScale scale = ComputeScale(low, high);
    EXPECT_EQ(scale.sStep, 1);
    EXPECT_EQ(scale.iSteps, 5);
  }
  EXPECT_GE(ComputeScale(largest / 2, std::nextafter(largest / 2, largest)).iSteps, 0);
}

}  // namespace
}  // namespace tolmer
