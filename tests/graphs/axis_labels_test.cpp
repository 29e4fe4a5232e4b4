#include "graphs/axis_labels.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tolmer {
namespace {

using testing::ElementsAre;

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
