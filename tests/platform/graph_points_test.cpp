// How points are drawn: bars, lines, symbols, the regression line.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "support/graph_pictures.h"

namespace tolmer {
namespace {

using test::all;
using test::SampleGraph;
using testing::Each;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::Lt;
using testing::SizeIs;

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

TEST(GraphBars, AreNoThickerThanTheEyeLikes) {
  SampleGraph graph(480, 280);
  draw(graph, GraphType::horizontalBars, {50});
  EXPECT_EQ(all<BoxPrimitive>(graph.picture())[0].place.height, 40);
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

TEST(GraphBars, LeaveTheirScaleToTheOverlay) {
  GraphDesign design;
  design.scaleAsOverlay = true;
  SampleGraph graph(480, 280, design);
  graph.settings.x.title = " ";
  graph.settings.y.title = "";
  graph.setPointLabel(2, "Second");
  draw(graph, GraphType::horizontalBars, {50, 25});
  EXPECT_THAT(test::texts(graph.picture()), ElementsAre("Second"));
  EXPECT_EQ(graph.SDKInfo(3), 100);
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

TEST_F(LeastSquares, LineEndsAtThePlotArea) {
  set({{0, 50}, {100, 450}});
  const ViewRect& plot = graph.picture().plot;
  ASSERT_THAT(lines(), SizeIs(1));
  EXPECT_NEAR(lines()[0].points.back().y, plot.top(), 1);
  EXPECT_NEAR(lines()[0].points.back().x, plot.left + plot.width / 8, 1);
}

TEST_F(LeastSquares, NothingIsDrawnWithoutSpread) {
  for (const std::vector<GraphPoint>& points :
       {std::vector<GraphPoint>{}, {{50, 50}}, {{0.1F, 0}, {0.1F, 50}, {0.1F, 10}}}) {
    set(points);
    EXPECT_THAT(lines(), IsEmpty());
  }
}

}  // namespace
}  // namespace tolmer
