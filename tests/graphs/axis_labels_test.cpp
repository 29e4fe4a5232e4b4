#include "graphs/axis_labels.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tolmer {
namespace {

using testing::ElementsAre;

TEST(AxisLabels, ShowValuesWithoutTheShift) {
  Axis axis;
  const AxisScale scale = ComputeScale(-3.1F, 7.5F);
  setScaledAxis(axis, scale, axisShift(scale.sAxisMin));
  EXPECT_EQ(axis.scaleMode, ScaleMode::userLimits);
  EXPECT_EQ(axis.minimum, 0);
  EXPECT_EQ(axis.maximum, 12);
  EXPECT_EQ(axis.ticks, 6);
  EXPECT_THAT(axis.labels, ElementsAre("-4", "-2", "0", "2", "4", "6", "8"));
}

TEST(AxisLabels, NothingIsShiftedAboveZero) {
  EXPECT_EQ(axisShift(3), 0);
  EXPECT_EQ(axisShift(-3), 3);
  Axis axis;
  setScaledAxis(axis, {200, 50, 2}, 0);
  EXPECT_EQ(axis.minimum, 200);
  EXPECT_EQ(axis.maximum, 300);
}

TEST(AxisLabels, OneFormatServesAllTicks) {
  Axis axis;
  setScaledAxis(axis, {0, 0.25F, 4}, 0);
  EXPECT_EQ(axis.labelFormat, "0.00");
  EXPECT_THAT(axis.labels, ElementsAre("0.00", "0.25", "0.50", "0.75", "1.00"));
}

TEST(AxisLabels, FewerTicksLeaveNoOldLabels) {
  Axis axis;
  setScaledAxis(axis, {0, 1, 9}, 0);
  setScaledAxis(axis, {0, 1, 2}, 0);
  EXPECT_THAT(axis.labels, ElementsAre("0", "1", "2"));
}

}  // namespace
}  // namespace tolmer
