// What stands for cases in a graph: hit by pointers, drags and keys, and lit.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/graph/graph.h"
#include "support/graph_pictures.h"

namespace tolmer::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Points of cases 1 to 4 at 20, 40, 60 and, at the same place, 60; a bar of cases 5 and 6 behind.
class CasesOfAGraph : public testing::Test {
 protected:
  CasesOfAGraph() {
    SampleGraph plot(480, 280);
    plot.settings.pointSymbol = openCircle;
    plot.setNumPoints(4);
    for (int i = 1; i <= 4; ++i)
      plot.setPoint(i, 20.0F * static_cast<float>(std::min(i, 3)), 50, 5 - i);
    plot.setDrawMode(Plot::draw);
    plot.GSUseView().GSBox2D(bar.left, bar.bottom, bar.width, bar.height, 0, palette::brightBlue);
    graph.Pick = [this](const std::vector<int>& cases, ClickKeys held) {
      picked = cases;
      adds = held.shift || held.control;
      graph.light({.cases = cases,
                   .current = cases.empty() ? 0 : cases.front(),
                   .nameOf = [](int i) { return "c" + std::to_string(i); }});
    };
    graph.show(plot, {{.place = bar, .cases = {5, 6}, .isBar = true}});
  }
  ViewPoint centreOf(int iCase) {
    for (const CaseMark& mark : graph.marks())
      if (mark.cases.front() == iCase)
        return {mark.place.left + mark.place.width / 2, mark.place.bottom + mark.place.height / 2};
    return {};
  }
  void click(ViewPoint at, ClickKeys held = {}) {
    graph.press(at, held);
    graph.dragTo({at.x + 2, at.y - 1});  // a hand trembles
    graph.release();
  }
  std::vector<int> afterKey(int code) {
    for (const TakenKey& key : graph.takenKeys())
      if (key.key.fits({code})) raise(key.work);
    return picked;
  }

  const ViewRect bar{100, 60, 40, 40};
  Graph graph{nullptr, "gphSample"};
  std::vector<int> picked{99};
  bool adds = false;
};

TEST_F(CasesOfAGraph, AreHitByPointersAndDrags) {
  click(centreOf(4), {.control = true});
  EXPECT_THAT(picked, ElementsAre(4));
  EXPECT_TRUE(adds);
  click({centreOf(3).x + 7, centreOf(3).y});
  EXPECT_THAT(picked, ElementsAre(3)) << "beside a small symbol";
  click(centreOf(2));
  EXPECT_THAT(picked, testing::UnorderedElementsAre(1, 2)) << "one hides the other";
  click({105, 95});
  EXPECT_THAT(picked, ElementsAre(5, 6));
  click({470, 270});
  EXPECT_THAT(picked, ElementsAre(5, 6)) << "a click beside everything takes nothing away";
  graph.press({0, 0});
  graph.dragTo({centreOf(3).x + 1, 500});
  EXPECT_TRUE(all<LinePrimitive>(graph.picture()).back().dashed);
  graph.release();
  EXPECT_THAT(picked, ElementsAre(3, 4, 5, 6));
  graph.press({470, 270});
  graph.dragTo({460, 260});
  graph.release();
  EXPECT_THAT(picked, IsEmpty());
}

TEST_F(CasesOfAGraph, AreSteppedThroughByPlaceAndByNumber) {
  EXPECT_THAT(afterKey(keys::left), ElementsAre(1)) << "without a selection from the end";
  EXPECT_THAT(afterKey(keys::home), ElementsAre(5, 6));
  EXPECT_THAT(afterKey(keys::right), ElementsAre(4));
  EXPECT_THAT(afterKey(keys::down), ElementsAre(5));
  EXPECT_THAT(afterKey(keys::down), ElementsAre(6));
  EXPECT_THAT(afterKey(keys::down), ElementsAre(6));
  EXPECT_THAT(afterKey(keys::up), ElementsAre(5));
  EXPECT_THAT(afterKey(keys::end), ElementsAre(1));
}

TEST_F(CasesOfAGraph, StandOutWhileTheyAreLit) {
  const Picture before = graph.picture();
  graph.light({.cases = {3, 4, 6}, .current = 3, .nameOf = [](int) { return "name"; }});
  const Picture lit = graph.picture();
  const auto symbols = all<SymbolPrimitive>(lit);
  EXPECT_EQ(std::ranges::count_if(symbols, &SymbolPrimitive::filled), 4) << "two, each in a ring";
  const auto boxes = all<BoxPrimitive>(lit);
  ASSERT_EQ(boxes.size(), 2U);
  EXPECT_EQ(boxes[1].place.height, bar.height / 2) << "one of its two cases";
  EXPECT_EQ(std::ranges::count(texts(lit), "name"), 2);
  expectReadable(lit);
  graph.light({});
  EXPECT_EQ(graph.picture().primitives.size(), before.primitives.size());
}

}  // namespace
}  // namespace tolmer::test
