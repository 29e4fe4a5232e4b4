// What is recalculated, in which order, and what stands in a cycle.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

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

// The same dependencies told naively: which formulas hold, directly or not, any of the changed
// cells, and which hold themselves.
class PlainGraph {
 public:
  std::map<CellAddress, std::vector<CellRange>> formulas;

  std::set<CellAddress> behind(CellAddress changed) const {
    std::set<CellAddress> found;
    std::vector<CellAddress> open = {changed};
    while (!open.empty()) {
      const CellAddress cell = open.back();
      open.pop_back();
      for (const auto& [formula, ranges] : formulas)
        if (std::any_of(ranges.begin(), ranges.end(), [&](auto& r) { return r.holds(cell); }) &&
            found.insert(formula).second)
          open.push_back(formula);
    }
    return found;
  }
};

TEST(DependencyGraph, AgreesWithANaiveSearchThroughoutRandomEdits) {
  std::mt19937 random(4);
  const SheetSize size{6, 5};
  const auto draw = [&](int from, int to) {
    return from + static_cast<int>(random() % static_cast<unsigned>(to - from + 1));
  };
  DependencyGraph graph(size);
  PlainGraph plain;
  int cyclesSeen = 0;
  for (int edit = 0; edit < 4000; ++edit) {
    const CellAddress cell{draw(1, 6), draw(0, 5)};
    graph.remove(cell);
    plain.formulas.erase(cell);
    std::set<CellRange> ranges;
    for (int i = draw(0, 2); i > 0; --i) {
      const CellAddress first{draw(1, 6), draw(0, 5)};
      const bool isSingle = draw(0, 1) == 0;
      ranges.insert({first,
                     {isSingle ? first.row : std::min(6, first.row + draw(0, 2)),
                      isSingle ? first.column : std::min(5, first.column + draw(0, 1))}});
    }
    if (draw(0, 2) > 0) {
      graph.set(cell, {ranges.begin(), ranges.end()});
      plain.formulas[cell] = {ranges.begin(), ranges.end()};
    }

    std::set<CellAddress> wanted = plain.behind(cell);
    if (plain.formulas.contains(cell)) wanted.insert(cell);
    const CellAddress changed[] = {cell};
    const RecalculationOrder order = graph.orderAfter(changed);
    std::set<CellAddress> done(order.cycles.begin(), order.cycles.end());
    for (const CellAddress circular : order.cycles)
      ASSERT_TRUE(plain.behind(circular).contains(circular));
    cyclesSeen += !order.cycles.empty();
    for (const CellAddress next : order.cells) {
      const std::set<CellAddress> later = plain.behind(next);
      ASSERT_FALSE(later.contains(next));
      for (const CellAddress before : done)
        ASSERT_TRUE(!later.contains(before) || plain.behind(before).contains(before));
      ASSERT_TRUE(done.insert(next).second);
    }
    ASSERT_EQ(done, wanted) << "edit " << edit;
  }
  EXPECT_GT(cyclesSeen, 100);
}

}  // namespace
}  // namespace tolmer::test
