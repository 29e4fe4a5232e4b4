#include "engine/axis_scale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/regression_data.h"

namespace tolmer {
namespace {

TEST(ComputeScale, PrintsItsTable) {
  struct Case {
    float low, high, minimum, step;
    int steps;
  };
  for (const Case& c : std::initializer_list<Case>{
           {0, 10, 0, 2, 6},
           {3, 3, 3, 1, 5},
           {5, 4, 5, 1, 5},
           // A fifth as a single is a little more than a fifth, but 1 divided by it is 5 in
           // singles.
           {0, 1, 0, 0.2F, 6},
           {0, 1.9F, 0, 0.2F, 10},
           {0, 2, 0, 0.5F, 5},
           {0, 4.99F, 0, 0.5F, 10},
           {0, 5, 0, 1, 6},
           {0, 9.99F, 0, 1, 10},
           {-1, 1, -1, 0.5F, 5},
           {-3.2F, 4.1F, -4, 1, 9},
           {72.5F, 115.9F, 70, 5, 10},
           {1999, 2003, 1999, 0.5F, 9},
           {0.599999F, 3, 0.5F, 0.5F, 6},
           {1e-30F, 3e-30F, 1e-30F, 5e-31F, 5},
           {-1e30F, 1e30F, -1e30F, 5e29F, 5},
       }) {
    const AxisScale scale = ComputeScale(c.low, c.high);
    EXPECT_EQ(scale.sAxisMin, c.minimum) << c.low << " to " << c.high;
    EXPECT_EQ(scale.sStep, c.step) << c.low << " to " << c.high;
    EXPECT_EQ(scale.iSteps, c.steps) << c.low << " to " << c.high;
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
