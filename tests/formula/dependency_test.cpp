// What is recalculated, in which order, and what stands in a cycle. Random edits are compared with
// a model in editor/data_editor_random_test.cpp.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "formula/small_sheet.h"

namespace tolmer::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

CellAddress at(const std::string& address) { return SmallSheet::addressOf(address); }

TEST(Recalculation, DoesOnlyWhatDependsAndEachOnce) {
  SmallSheet sheet({"Label", "Var1"});
  sheet.type("C1", "=B1+D1");  // before what it depends on
  sheet.type("D1", "=SUM(B1:B2)");
  sheet.type("E1", "=AVERAGE(Var1)*C1");
  sheet.type("F1", "=IF(1,2,B9)");
  EXPECT_THAT(sheet.type("B1", "5"), ElementsAre(at("D1"), at("C1"), at("E1")));
  EXPECT_THAT(sheet.type("B3", "7"), ElementsAre(at("E1")));
  EXPECT_THAT(sheet.type("B9", "6"), UnorderedElementsAre(at("F1"), at("E1")))
      << "the branch not taken counts";
  EXPECT_THAT(sheet.type("D7", "7"), IsEmpty());
  EXPECT_EQ(shown(sheet.value("=E1")), "60");
  sheet.type("C1", "1");
  EXPECT_THAT(sheet.type("D1", "2"), IsEmpty()) << "C1 holds no formula any more";
}

TEST(Recalculation, MarksCyclesAndMendsThem) {
  SmallSheet sheet;
  sheet.type("B1", "=C1");
  sheet.type("C1", "=D1+1");
  sheet.type("E1", "=B1*2");        // behind the cycle
  sheet.type("D1", "=SUM(A1:B1)");  // closes it, through a range
  for (const auto* cell : {"=B1", "=C1", "=D1", "=E1"})
    EXPECT_EQ(shown(sheet.value(cell)), "#CYCLE") << cell;
  EXPECT_THAT(sheet.type("D1", "1"), ElementsAre(at("C1"), at("B1"), at("E1")));
  EXPECT_EQ(shown(sheet.value("=E1")), "4");

  for (const auto* itself : {"=F1", "=SUM(F:F)", "=LAG(F2)", "=IF(1,2,F1)"}) {
    sheet.type("F1", itself);
    EXPECT_EQ(shown(sheet.value("=F1")), "#CYCLE") << itself;
    sheet.type("F1", "1");
  }
}

}  // namespace
}  // namespace tolmer::test
