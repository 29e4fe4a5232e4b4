// The two classes of the drawing library that draw equally wide classes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "graphs/plot_histogram.h"
#include "graphs/plot_polygon.h"
#include "support/graph_pictures.h"

namespace tolmer {
namespace {

using test::all;
using test::SampleGraph;
using testing::SizeIs;

class EqualClasses : public testing::Test {
 protected:
  EqualClasses() {
    graph.setDrawMode(Graph::draw);
    plot = graph.picture().plot;
  }
  std::vector<BoxCall> boxes() const { return all<BoxCall>(graph.overlay()); }

  SampleGraph graph{480, 280};
  PlotHistogram histogram;
  ViewRect plot;
};

TEST_F(EqualClasses, BarsStandSideBySideFromTheBaseUp) {
  histogram.setTargetGraph(graph);
  histogram.setMaxClasses(5);
  histogram.InitBarPlot();
  histogram.PlotBar(1, 50);
  histogram.PlotBar(4, 0.1F);
  ASSERT_THAT(boxes(), SizeIs(1)) << "one bar is less than a unit high";
  const double classWidth = plot.width / 5;
  EXPECT_NEAR(boxes()[0].x, plot.left + 1.05 * classWidth, 1e-4);
  EXPECT_NEAR(boxes()[0].width, 0.9 * classWidth, 1e-4);
  EXPECT_EQ(boxes()[0].y, plot.bottom);
  EXPECT_NEAR(boxes()[0].height, plot.height / 2, 1e-9);
  EXPECT_EQ(boxes()[0].colour, 9);
}

TEST_F(EqualClasses, ADataWindowMovesAndScalesTheBars) {
  histogram.setTargetGraph(graph);
  histogram.setMaxClasses(2);
  histogram.setBarColor(12);
  histogram.setGapFraction(0);
  histogram.setPattern(1);
  histogram.DefineDataWindowY(20, 60, 0, 1);
  histogram.InitBarPlot();
  histogram.PlotBar(0, 0.5F);
  ASSERT_THAT(boxes(), SizeIs(1));
  EXPECT_NEAR(boxes()[0].y, plot.bottom + 0.2 * plot.height, 1e-4);
  EXPECT_NEAR(boxes()[0].height, 0.2 * plot.height, 1e-4);
  EXPECT_NEAR(boxes()[0].width, plot.width / 2, 1e-4);
  EXPECT_EQ(boxes()[0].colour, 12);
  EXPECT_EQ(boxes()[0].pattern, 1);
}

TEST_F(EqualClasses, AllBarsAtOnce) {
  const std::vector<float> counts{0, 100, 0, 25};
  histogram.PlotHistData(graph, counts, 3);
  ASSERT_THAT(boxes(), SizeIs(2));
  EXPECT_NEAR(boxes()[0].height, plot.height, 1e-9);
  EXPECT_NEAR(boxes()[1].x, plot.left + (2 + 0.05) * plot.width / 3, 1e-4);
  EXPECT_NEAR(boxes()[1].height, plot.height / 4, 1e-9);
}

TEST_F(EqualClasses, APolygonJoinsTheMiddlesOfClasses) {
  const std::vector<Int16> counts{0, 50, 100, 0, 25};
  PlotPolygon polygon;
  polygon.PlotPolyData(graph, counts, 4);
  const auto lines = all<LineCall>(graph.overlay());
  ASSERT_THAT(lines, SizeIs(3));
  EXPECT_NEAR(lines[0].x1, plot.left + plot.width / 8, 1e-9);
  EXPECT_NEAR(lines[0].y1, plot.bottom + plot.height / 2, 1e-9);
  EXPECT_EQ(lines[1].x1, lines[0].x2);
  EXPECT_EQ(lines[1].y1, lines[0].y2);
  EXPECT_NEAR(lines[2].x2, plot.right() - plot.width / 8, 1e-9);
  EXPECT_NEAR(lines[2].y2, plot.bottom + plot.height / 4, 1e-9);
  EXPECT_EQ(lines[2].mode, 4);
  EXPECT_EQ(lines[2].style, 2);
  EXPECT_EQ(lines[2].colour, 9);
}

}  // namespace
}  // namespace tolmer
