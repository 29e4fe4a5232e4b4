#include "platform/graph/plot.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "support/graph_pictures.h"

namespace tolmer {
namespace {

using test::all;
using test::SampleGraph;
using testing::Contains;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

TEST(Graph, DrawsOnlyWhenToldAndThenAnew) {
  SampleGraph graph(480, 280);
  EXPECT_THAT(graph.picture().primitives, IsEmpty());
  graph.setDrawMode(Plot::draw);
  const auto withoutOverlay = graph.picture().primitives.size();
  graph.GSUseView().GSBox2D(100, 100, 50, 50, 128, palette::brightBlue);
  EXPECT_THAT(graph.picture().primitives, SizeIs(withoutOverlay + 1));

  graph.setDrawMode(Plot::draw);
  EXPECT_THAT(graph.picture().primitives, SizeIs(withoutOverlay));
  EXPECT_THAT(graph.overlay(), IsEmpty());
}

TEST(Graph, TellsWhereThePlotAreaLies) {
  SampleGraph graph(480, 280);
  graph.settings.x.minimum = 7;
  graph.settings.y.minimum = -3;
  graph.setDrawMode(Plot::draw);
  const ViewRect& plot = graph.picture().plot;
  EXPECT_EQ(graph.SDKInfo(1), 7);
  EXPECT_EQ(graph.SDKInfo(2), 100);
  EXPECT_EQ(graph.SDKInfo(3), 100);
  EXPECT_EQ(graph.SDKInfo(4), -3);
  EXPECT_EQ((ViewRect{graph.SDKInfo(7), graph.SDKInfo(8), graph.SDKInfo(5), graph.SDKInfo(6)}),
            plot);
  EXPECT_GT(plot.left, 0);
  EXPECT_LT(plot.right(), 480);
  EXPECT_GT(plot.bottom, 0);
  EXPECT_LT(plot.top(), 280);
}

TEST(GraphPoints, OutsideTheScaleAreLeftOut) {
  SampleGraph graph(480, 280);
  graph.settings.pointSymbol = 12;
  graph.setNumPoints(5);
  graph.setPoint(1, 50, 25);
  graph.setPoint(2, 0, 100);
  graph.setPoint(3, 100.5F, 50);
  graph.setPoint(4, -200, 0);
  graph.setPoint(5, std::numeric_limits<float>::quiet_NaN(), 50);
  graph.setDrawMode(Plot::draw);
  const auto symbols = all<SymbolPrimitive>(graph.picture());
  const ViewRect& plot = graph.picture().plot;
  ASSERT_THAT(symbols, SizeIs(2));
  EXPECT_EQ(symbols[1].point, 2);
  EXPECT_EQ(symbols[0].centre,
            (ViewPoint{plot.left + plot.width / 2, plot.bottom + plot.height / 4}));
  EXPECT_EQ(symbols[1].centre, (ViewPoint{plot.left, plot.top()}));
}

class Overlay : public testing::Test {
 protected:
  std::vector<LinePrimitive> lines() const {
    std::vector<LinePrimitive> found;
    for (const LinePrimitive& line : all<LinePrimitive>(graph.picture()))
      if (!(line.colour == colours::black)) found.push_back(line);
    return found;
  }

  ViewRect drawnPlot() {
    graph.setDrawMode(Plot::draw);
    return graph.picture().plot;
  }

  SampleGraph graph{480, 280};
  const ViewRect plot = drawnPlot();
  DrawingView& view = graph.GSUseView();
};

TEST_F(Overlay, LinesThatMeetAreOne) {
  view.GSLineAbs(100, 100, 110, 120, 5, 2, 12);
  view.GSLineAbs(110, 120, 120, 130, 5, 2, 12);
  view.GSLineAbs(120, 130, 130, 120, 1, 2, 12);
  view.GSLineAbs(131, 120, 140, 110, 1, 2, 12);
  ASSERT_THAT(lines(), SizeIs(3));
  EXPECT_THAT(lines()[0].points, SizeIs(3));
  EXPECT_THAT(graph.overlay(), SizeIs(4));
}

TEST_F(Overlay, LinesEndAtThePlotArea) {
  view.GSLineAbs(plot.left - 50, plot.bottom + 50, plot.right() + 50, plot.bottom + 50, 5, 2, 12);
  view.GSLineAbs(plot.left + 10, plot.bottom - 30, plot.left + 10, plot.bottom - 10, 5, 2, 12);
  ASSERT_THAT(lines(), SizeIs(1));
  EXPECT_NEAR(lines()[0].points[0].x, plot.left, 1);
  EXPECT_NEAR(lines()[0].points[1].x, plot.right(), 1);
}

TEST_F(Overlay, LinesStayClearOfTheFrame) {
  view.GSLineAbs(plot.right(), plot.top(), plot.right(), plot.bottom, 1, 2, 7);
  EXPECT_THAT(lines(), IsEmpty());
  view.GSLineAbs(plot.right() - 2, plot.top(), plot.right() - 2, plot.bottom, 1, 2, 7);
  EXPECT_THAT(lines(), SizeIs(1));
  EXPECT_TRUE(lines()[0].dashed);
}

TEST_F(Overlay, WhatIsNotFiniteIsRecordedAndNotDrawn) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinity = std::numeric_limits<double>::infinity();
  const auto before = graph.picture().primitives.size();
  view.GSLineAbs(nan, 100, 200, 100, 5, 2, 12);
  view.GSLineAbs(100, -infinity, 200, 100, 5, 2, 12);
  view.GSBox2D(100, nan, 10, 10, 128, 9);
  view.GSBox2D(100, 100, nan, 10, 128, 9);
  view.GSRText(infinity, 100, 0x110, "text");
  EXPECT_THAT(graph.picture().primitives, SizeIs(before));
  EXPECT_THAT(graph.overlay(), SizeIs(5));
  view.GSLineAbs(-1e30, 100, 1e30, 100, 5, 2, 12);
  ASSERT_THAT(lines(), SizeIs(1));
  EXPECT_NEAR(lines()[0].points[1].x, plot.right(), 1);
}

TEST_F(Overlay, BoxesAreClipped) {
  view.GSBox2D(plot.left - 5, plot.bottom, 20, plot.height * 2, 128, 9);
  const auto boxes = all<BoxPrimitive>(graph.picture());
  ASSERT_THAT(boxes, SizeIs(1));
  EXPECT_EQ(boxes[0].place, (ViewRect{plot.left, plot.bottom, 15, plot.height}));
  EXPECT_EQ(boxes[0].outline, paletteColour(palette::brightBlue));
}

TEST_F(Overlay, TextFlagsPlaceTheText) {
  const auto placed = [&](double x, double y, int flags) {
    view.GSRText(x, y, flags, "1000");
    return textBounds(all<TextPrimitive>(graph.picture()).back());
  };
  const double width = view.GSGetRTextWid("1000");
  EXPECT_NEAR(placed(100, 100, 0x112).left, 100 - width / 2, 1e-9);
  EXPECT_LE(placed(200, 100, 0x112).top(), 100);
  EXPECT_NEAR(placed(300, 100, 0x110).left, 300, 1e-9);
  const ViewRect beside = placed(100, 200, 0x100);
  EXPECT_LT(beside.bottom, 200);
  EXPECT_GT(beside.top(), 200);
}

TEST_F(Overlay, TextThatWouldOverlapOrLeaveTheViewIsLeftOut) {
  view.GSRText(200, 100, 0x100, "first");
  view.GSRText(205, 103, 0x100, "second");
  view.GSRText(470, 100, 0x100, "third");
  EXPECT_THAT(test::texts(graph.picture()), Contains("first"));
  EXPECT_THAT(test::texts(graph.picture()), Not(Contains("second")));
  EXPECT_THAT(test::texts(graph.picture()), Not(Contains("third")));
}

TEST(Palette, KeepsToItsColours) {
  EXPECT_EQ(paletteColour(-1), colours::black);
  EXPECT_EQ(paletteColour(16), colours::black);
  EXPECT_EQ(tint(colours::black, 0), colours::white);
  EXPECT_EQ(tint(paletteColour(9), 1), paletteColour(9));
}

}  // namespace
}  // namespace tolmer
