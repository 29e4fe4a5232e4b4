#include "graphs/plot_bars.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/box_texts.h"
#include "support/graph_pictures.h"

namespace tolmer {
namespace {

using test::all;
using test::SampleGraph;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

Matrix<float> bars(const std::vector<std::vector<float>>& rows) {
  Matrix<float> data(static_cast<int>(rows.size()), static_cast<int>(rows.front().size()));
  for (int i = 1; i <= data.lastRow(); ++i)
    for (int j = 1; j <= data.lastColumn(); ++j)
      data(i, j) = rows[static_cast<std::size_t>(i) - 1][static_cast<std::size_t>(j) - 1];
  return data;
}

class PlotBarTest : public testing::Test {
 protected:
  PlotBarTest() {
    graph.setDrawMode(Plot::draw);
    plot = graph.picture().plot;
    plotBar.setTargetGraph(graph);
    plotBar.GapFraction = 0.0001F;
    plotBar.MaxY = 20;
  }
  std::vector<BoxCall> draw(const std::vector<std::vector<float>>& rows) {
    plotBar.NumBarsToPlot = static_cast<Int16>(rows.size());
    plotBar.PlotBarData(bars(rows));
    return all<BoxCall>(graph.overlay());
  }
  // Where a value between 0 and 10 stands on the horizontal axis.
  double at(double x) const { return x / 10 * plot.width + plot.left; }

  MessageLog messages;
  SampleGraph graph{480, 280};
  PlotBar plotBar{messages};
  ViewRect plot;
};

TEST_F(PlotBarTest, ABarReachesToTheNextRowLessHalfTheGap) {
  const auto boxes = draw({{2, 5}, {4, 10}, {8, 0}});
  ASSERT_THAT(boxes, SizeIs(2));
  EXPECT_NEAR(boxes[0].x, at(2) + 1, 1e-4);
  EXPECT_NEAR(boxes[0].x + boxes[0].width, at(4) - 1, 1e-4);
  EXPECT_EQ(boxes[0].y, plot.bottom);
  EXPECT_NEAR(boxes[0].height, plot.height / 4, 1e-4);
  EXPECT_NEAR(boxes[1].x - boxes[0].x - boxes[0].width, 2, 1e-4) << "two pixels between them";
  EXPECT_NEAR(boxes[1].x + boxes[1].width, at(8) - 1, 1e-4);
  EXPECT_EQ(boxes[1].pattern, 128);
  EXPECT_EQ(boxes[1].colour, 1);
}

TEST_F(PlotBarTest, BarsOfAtMostOneUnitAreLeftOut) {
  plotBar.MinY = 4;
  plotBar.MaxY = 4 + static_cast<float>(plot.height);
  const auto boxes = draw({{1, 4}, {2, 3}, {3, 5}, {4, 5.5F}, {5, 0}});
  ASSERT_THAT(boxes, SizeIs(1));
  EXPECT_NEAR(boxes[0].x, at(4) + 1, 1e-4);
  EXPECT_NEAR(boxes[0].height, 1.5, 1e-3);
}

TEST_F(PlotBarTest, LimitsOutOfOrderStopTheDrawing) {
  EXPECT_THAT(draw({{1, 5}, {3, 5}, {2.5F, 5}, {4, 5}}), SizeIs(1));
  ASSERT_THAT(messages.boxes(), SizeIs(1));
  EXPECT_EQ(messages.boxes()[0].box.title, "Error!!");
  EXPECT_EQ(messages.boxes()[0].box.text,
            "Error in PlotBar.PlotBarData - data unsorted. See points 2 (3) and 3 (2.5).");
}

TEST_F(PlotBarTest, ColoursComeFromTheThirdColumnWhereAsked) {
  plotBar.UseSameColor = false;
  const auto boxes = draw({{1, 5, 8.6F}, {2, 5, 12}, {3, 5, 1e30F}});
  ASSERT_THAT(boxes, SizeIs(3));
  EXPECT_EQ(boxes[0].colour, 9);
  EXPECT_EQ(boxes[1].colour, 12);
  EXPECT_EQ(boxes[2].colour, 0) << "no colour of the palette";
}

TEST_F(PlotBarTest, RefusesTooFewColumns) {
  plotBar.UseSameColor = false;
  EXPECT_THAT(draw({{1, 5}, {2, 5}}), IsEmpty());
  EXPECT_THAT(test::textsOf(messages),
              ElementsAre("Error in PlotBar.PlotBarData - Not enough columns in array."));
  EXPECT_EQ(messages.boxes()[0].box.title, "Error!!");
}

class EqualClasses : public testing::Test {
 protected:
  EqualClasses() {
    graph.setDrawMode(Plot::draw);
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
