// A graph: when it is drawn, its points, its overlay, its SVG.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

#include "platform/graph/plot.h"
#include "platform/graph/svg_writer.h"
#include "support/graph_pictures.h"

namespace tolmer {
namespace {

using test::all;
using test::SampleGraph;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Lt;
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

// How points are drawn: bars, lines, symbols, the regression line.
constexpr float missing = std::numeric_limits<float>::quiet_NaN();

std::vector<LinePrimitive> linesOf(const Picture& picture, Colour colour) {
  std::vector<LinePrimitive> found;
  for (const LinePrimitive& line : all<LinePrimitive>(picture))
    if (line.colour == colour) found.push_back(line);
  return found;
}

// Settings of that type with these values, on the scale 0 .. 100.
void draw(SampleGraph& graph, GraphType type, const std::vector<float>& values) {
  graph.settings.graphType = type;
  graph.settings.pointColour = palette::brightBlue;
  graph.setNumPoints(static_cast<int>(values.size()));
  for (int i = 1; i <= graph.numPoints(); ++i)
    graph.setPoint(i, static_cast<float>(i), values[static_cast<std::size_t>(i) - 1]);
  graph.setDrawMode(Plot::draw);
}

TEST(GraphBars, LieAlongTheScaleOfValuesFirstOnTop) {
  SampleGraph graph(480, 280);
  draw(graph, GraphType::horizontalBars, {50, 25, 0, -5, missing, 100});
  const auto bars = all<BoxPrimitive>(graph.picture());
  const ViewRect& plot = graph.picture().plot;
  const double slot = plot.height / 6;
  ASSERT_THAT(bars, SizeIs(3));
  const std::vector<std::pair<double, double>> slotAndShare{{0, 0.5}, {1, 0.25}, {5, 1}};
  for (std::size_t i = 0; i < 3; ++i) {
    const ViewRect& place = bars[i].place;
    EXPECT_EQ(place.left, plot.left + 1) << "beside the frame";
    EXPECT_DOUBLE_EQ(place.right(), plot.left + slotAndShare[i].second * plot.width);
    EXPECT_NEAR(place.bottom + place.height / 2, plot.top() - (slotAndShare[i].first + 0.5) * slot,
                0.5);
    EXPECT_EQ(place.height, std::round(2 * slot / 3));
  }
  EXPECT_EQ(bars[0].outline, paletteColour(palette::brightBlue));
  EXPECT_THAT(linesOf(graph.picture(), colours::white), IsEmpty());
}

TEST(GraphBars, BeyondTheScaleAreCutAndMarked) {
  SampleGraph graph(480, 280);
  draw(graph, GraphType::horizontalBars, {100.5F, 100, std::numeric_limits<float>::infinity()});
  const auto bars = all<BoxPrimitive>(graph.picture());
  ASSERT_THAT(bars, SizeIs(3));
  for (const BoxPrimitive& bar : bars)
    EXPECT_DOUBLE_EQ(bar.place.right(), graph.picture().plot.right());
  const auto notches = linesOf(graph.picture(), colours::white);
  ASSERT_THAT(notches, SizeIs(2));
  EXPECT_EQ(notches[0].points.front().y, bars[0].place.top());
  EXPECT_EQ(notches[1].points.back().y, bars[2].place.bottom);
  EXPECT_THAT(notches[0].points, Each(Field(&ViewPoint::x, Lt(bars[0].place.right()))));
}

// Point i stands at (i - 0.5) / N of the width.
TEST(GraphLine, JoinsItsPointsAndBreaksWhereOneIsMissing) {
  SampleGraph graph(480, 280);
  graph.settings.pointSymbol = 13;
  draw(graph, GraphType::lineWithSymbols, {0, 50, missing, 25, 100, 75});
  const ViewRect& plot = graph.picture().plot;
  const auto at = [&](int point, double share) {
    return ViewPoint{plot.left + (point - 0.5) / 6 * plot.width, plot.bottom + share * plot.height};
  };
  const auto lines = linesOf(graph.picture(), paletteColour(palette::brightBlue));
  ASSERT_THAT(lines, SizeIs(2));
  EXPECT_THAT(lines[0].points, ElementsAre(at(1, 0), at(2, 0.5)));
  EXPECT_THAT(lines[1].points, ElementsAre(at(4, 0.25), at(5, 1), at(6, 0.75)));
  EXPECT_EQ(lines[0].width, 1);
  EXPECT_THAT(all<SymbolPrimitive>(graph.picture()), SizeIs(5));
  EXPECT_TRUE(std::holds_alternative<SymbolPrimitive>(graph.picture().primitives.back()));
}

TEST(GraphLine, EndsAtThePlotArea) {
  SampleGraph graph(480, 280);
  graph.settings.pointSymbol = 13;
  draw(graph, GraphType::lineWithSymbols, {50, 250, 50});
  const ViewRect& plot = graph.picture().plot;
  const auto lines = linesOf(graph.picture(), paletteColour(palette::brightBlue));
  ASSERT_THAT(lines, SizeIs(2));
  EXPECT_NEAR(lines[0].points.back().y, plot.top(), 1);
  EXPECT_NEAR(lines[0].points.back().x, plot.left + plot.width / 4, 1) << "a quarter of the way up";
  EXPECT_THAT(all<SymbolPrimitive>(graph.picture()), SizeIs(2));
}

// A scale may begin a hundredth of a step above the least value.
TEST(GraphSymbols, JustBesideTheScaleStandOnTheFrame) {
  SampleGraph graph(480, 280);
  graph.settings.pointSymbol = 12;
  draw(graph, GraphType::symbols, {-0.2F, 100.2F, -1, 101});
  const ViewRect& plot = graph.picture().plot;
  const auto symbols = all<SymbolPrimitive>(graph.picture());
  ASSERT_THAT(symbols, SizeIs(2));
  EXPECT_EQ(symbols[0].centre.y, plot.bottom);
  EXPECT_EQ(symbols[1].centre.y, plot.top());
}

class LeastSquares : public testing::Test {
 protected:
  void set(const std::vector<GraphPoint>& points) {
    graph.settings.points = points;
    graph.settings.pointSymbol = 12;
    graph.settings.lineStatistics = 8;
    graph.setDrawMode(Plot::draw);
  }
  std::vector<LinePrimitive> lines() const {
    return linesOf(graph.picture(), paletteColour(palette::brightRed));
  }
  SampleGraph graph{480, 280};
};

// By hand: means 25 and 27.5, sums of products 500 and 550, hence y = 1.1 x.
TEST_F(LeastSquares, LineRunsFromTheLeastToTheLargestX) {
  set({{20, 30}, {10, 10}, {missing, 5}, {40, 50}, {30, 20}});
  const ViewRect& plot = graph.picture().plot;
  ASSERT_THAT(lines(), SizeIs(1));
  const auto [a, b] = std::pair(lines()[0].points.front(), lines()[0].points.back());
  EXPECT_NEAR(a.x, plot.left + 0.10 * plot.width, 1e-9);
  EXPECT_NEAR(a.y, plot.bottom + 0.11 * plot.height, 1e-9);
  EXPECT_NEAR(b.x, plot.left + 0.40 * plot.width, 1e-9);
  EXPECT_NEAR(b.y, plot.bottom + 0.44 * plot.height, 1e-9);
  EXPECT_EQ(lines()[0].width, 2);
  EXPECT_TRUE(std::holds_alternative<LinePrimitive>(graph.picture().primitives.back()))
      << "above the symbols";
}

TEST_F(LeastSquares, NothingIsDrawnWithoutSpread) {
  for (const std::vector<GraphPoint>& points :
       {std::vector<GraphPoint>{}, {{50, 50}}, {{0.1F, 0}, {0.1F, 50}, {0.1F, 10}}}) {
    set(points);
    EXPECT_THAT(lines(), IsEmpty());
  }
}

std::string sampleSvg() {
  test::SampleGraph graph(480, 280);
  graph.settings.x.title = "a < b & \"c\"";
  graph.settings.pointSymbol = 12;
  graph.settings.pointColour = 9;
  graph.setNumPoints(2);
  graph.setPoint(1, 50, 50);
  graph.setPoint(2, 60, 60);
  graph.setDrawMode(Plot::draw);
  DrawingView& view = graph.GSUseView();
  view.GSBox2D(100, 60, 50.005, 80, 128, 9);
  view.GSLineAbs(100, 100, 200, 100, 1, 2, 12);
  return writeSvg(graph.picture(), "Title & more", "One < two.\nThree.");
}

std::size_t count(const std::string& text, const std::string& part) {
  std::size_t found = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++found;
  return found;
}

TEST(Svg, HoldsEveryPrimitive) {
  const std::string svg = sampleSvg();
  EXPECT_THAT(svg, testing::StartsWith("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"480\""));
  EXPECT_EQ(count(svg, "<circle"), 2U);
  EXPECT_EQ(count(svg, "<g fill=\"#1a4fe0\" fill-opacity=\"0.25\" stroke=\"#1a4fe0\">"), 1U);
  EXPECT_EQ(count(svg, "</g>"), 1U);
  EXPECT_EQ(count(svg, "<rect"), 2U) << "the paper and the bar";
  EXPECT_EQ(count(svg, "<text"), 14U) << "two times six labels and a title";
  EXPECT_THAT(svg, HasSubstr("stroke-dasharray=\"5 3\""));
  EXPECT_THAT(svg, HasSubstr("stroke=\"#d91e18\""));
  EXPECT_THAT(svg, HasSubstr("points=\"100,180.5 200,180.5\""));
  EXPECT_EQ(count(svg, "rotate(-90 "), 1U) << "the title at the left";
}

TEST(Svg, EscapesTexts) {
  const std::string svg = sampleSvg();
  EXPECT_THAT(svg, HasSubstr("a &lt; b &amp; &quot;c&quot;"));
  EXPECT_THAT(svg, HasSubstr("<title>Title &amp; more</title>"));
  EXPECT_THAT(svg, HasSubstr("<desc>One &lt; two.\nThree.</desc>"));
  EXPECT_EQ(count(svg, "<"), count(svg, ">"));
}

}  // namespace
}  // namespace tolmer
