#include "platform/graph/axis_ticks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <charconv>
#include <random>

#include "support/graph_pictures.h"

namespace tolmer {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

std::vector<std::string> labels(float minimum, float maximum) {
  std::vector<std::string> texts;
  for (const TidyTick& tick : tidyTicks({minimum, maximum})) texts.push_back(tick.label);
  return texts;
}

TEST(TidyTicks, CountInTidySteps) {
  EXPECT_THAT(labels(-40, 30), ElementsAre("-40", "-30", "-20", "-10", "0", "10", "20", "30"));
  EXPECT_THAT(labels(0.1F, 0.7F), ElementsAre("0.1", "0.2", "0.3", "0.4", "0.5", "0.6", "0.7"));
  EXPECT_THAT(labels(0, 0.3F), ElementsAre("0.00", "0.05", "0.10", "0.15", "0.20", "0.25", "0.30"));
  EXPECT_THAT(labels(0, 2.2F), SizeIs(12)) << "no coarser step ends at both limits";
  EXPECT_THAT(labels(-7.5F, 10), ElementsAre("-6", "-4", "-2", "0", "2", "4", "6", "8", "10"));
  EXPECT_THAT(labels(0, 1e7F),
              ElementsAre("0", "2000000", "4000000", "6000000", "8000000", "10000000"));
}

TEST(TidyTicks, TakeExponentsForWhatIsLongWithout) {
  EXPECT_THAT(labels(0, 5e15F), ElementsAre("0E+00", "1E+15", "2E+15", "3E+15", "4E+15", "5E+15"));
  EXPECT_EQ(labels(0, 4e-7F)[7], "3.5E-07");
}

TEST(TidyTicks, NeedAScale) {
  EXPECT_THAT(labels(1, 1), IsEmpty());
  EXPECT_THAT(labels(2, 1), IsEmpty());
  EXPECT_THAT(labels(std::numeric_limits<float>::quiet_NaN(), 1), IsEmpty());
  EXPECT_THAT(labels(0, std::numeric_limits<float>::infinity()), IsEmpty());
}

// Scales as displays set them: whole numbers of a step, in singles.
TEST(TidyTicks, AreExactAndBoundedInNumberForEveryScale) {
  std::mt19937 random(5);
  for (int run = 0; run < 20000; ++run) {
    const int factor = std::array{2, 5, 10}[random() % 3];
    const auto step = static_cast<float>(factor * std::pow(10.0, int(random() % 60) - 30));
    const float minimum = static_cast<float>(int(random() % 2000) - 1000) * step;
    const float maximum = minimum + static_cast<float>(4 + random() % 8) * step;
    const auto ticks = tidyTicks({minimum, maximum});
    SCOPED_TRACE(ticks.front().label + " .. " + ticks.back().label);
    ASSERT_GE(ticks.size(), 4U);
    ASSERT_LE(ticks.size(), 12U);
    ASSERT_NEAR(ticks.front().value, minimum, 1e-3 * step);
    ASSERT_NEAR(ticks.back().value, maximum, 1e-3 * step);
    for (const TidyTick& tick : ticks) {
      double told = 0;
      std::from_chars(tick.label.data(), tick.label.data() + tick.label.size(), told);
      ASSERT_DOUBLE_EQ(told, tick.value);
      ASSERT_LE(tick.label.size(), 10U) << tick.label;
    }
  }
}

TEST(TidyScale, HoldsItsValuesTightly) {
  for (const auto& [least, greatest] :
       {std::pair{-0.3, 17.0}, {0.0, 0.0}, {3.0, 3.0}, {-1e-30, 1e30}, {998.0, 1001.5}}) {
    const Scale scale = tidyScale(least, greatest);
    const double unseen = 1e-6 * (greatest - least);
    EXPECT_LE(scale.minimum, least + unseen);
    EXPECT_GE(scale.maximum, greatest - unseen);
    EXPECT_GT(scale.maximum, scale.minimum);
    EXPECT_LE(scale.maximum - scale.minimum, std::max(1.6 * (greatest - least), 3.0));
  }
  EXPECT_EQ(tidyScale(-0.3, 17).minimum, -2);
  EXPECT_EQ(tidyScale(-0.3, 17).maximum, 18);
}

TEST(AutomaticScale, IsThatOfThePointsUnlessLimitsAreSet) {
  test::SampleGraph graph(640, 360);
  graph.settings.x = {};
  graph.settings.y = {};
  graph.setNumPoints(3);
  graph.setPoint(1, -7, 120);
  graph.setPoint(2, 66, 480);
  graph.setPoint(3, std::numeric_limits<float>::quiet_NaN(), 250);
  graph.setDrawMode(Plot::draw);
  EXPECT_EQ(graph.SDKInfo(1), -10);
  EXPECT_EQ(graph.SDKInfo(2), 70);
  EXPECT_EQ(graph.SDKInfo(3), 500);
  EXPECT_EQ(graph.SDKInfo(4), 100);
  graph.settings.y.minimum = -400;
  graph.settings.y.maximum = 600;
  graph.setDrawMode(Plot::draw);
  EXPECT_EQ(graph.SDKInfo(3), 600);
  EXPECT_EQ(graph.SDKInfo(4), -400);
  EXPECT_THAT(test::texts(graph.picture()), testing::IsSupersetOf({"-400", "-200", "0", "600"}));
  EXPECT_THAT(graph.settings.y.labels, IsEmpty()) << "what was set stays";
}

}  // namespace
}  // namespace tolmer
