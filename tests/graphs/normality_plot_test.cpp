#include "graphs/normality_plot.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "graphs/graph_fixture.h"

namespace tolmer {
namespace {

using test::all;
using testing::ElementsAre;
using testing::SizeIs;

class NormalityPlot : public test::DisplayFixture {
 protected:
  NormalityPlot() { test::setInnerSize(plot, 480, 280); }
  void draw(const std::vector<float>& sorted, float standardError) {
    test::setResiduals(state, sorted, standardError);
    plot.UpdateDisplay();
  }

  frmProbPlot plot{desktop, state, host};
  Graph& graph = plot.gphProbPlot;
};

// R: 2 * qnorm((1:5 - .5) / 5). The expected extremes, 2.56, reach farther down than the residuals,
// the largest residual farther up.
TEST_F(NormalityPlot, SetsResidualsAgainstNormalQuantilesOnTwoEqualAxes) {
  draw({-2, -1, 0.5F, 1, 5}, 2);
  const std::vector<double> expected = {-2.5631031, -1.0488010, 0, 1.0488010, 2.5631031};
  ASSERT_THAT(graph.settings.points, SizeIs(5));
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_EQ(graph.settings.points[i].x, state.sSortedResid[i + 1] + 3);
    EXPECT_NEAR(graph.settings.points[i].value, expected[i] + 3, 2e-6);
  }
  EXPECT_EQ(graph.settings.points[2].value, 3) << "the middle case is expected at zero, exactly";
  for (const Axis* axis : {&graph.settings.x, &graph.settings.y}) {
    EXPECT_EQ(axis->scaleMode, ScaleMode::userLimits);
    EXPECT_EQ(axis->minimum, 0);
    EXPECT_EQ(axis->maximum, 9);
    EXPECT_THAT(axis->labels, ElementsAre("-3", "-2", "-1", "0", "1", "2", "3", "4", "5", "6"));
  }
  EXPECT_EQ(graph.settings.x.title, "Observed");
  EXPECT_EQ(graph.settings.y.title, "Expected");
  EXPECT_EQ(graph.settings.pointSymbol, 12);
  EXPECT_EQ(graph.settings.pointColour, 9);

  const ViewRect& area = graph.picture().plot;
  const auto lines = all<LineCall>(graph.overlay());
  ASSERT_THAT(lines, SizeIs(1));
  EXPECT_EQ((ViewPoint{lines[0].x1, lines[0].y1}), (ViewPoint{area.left, area.bottom}));
  EXPECT_EQ((ViewPoint{lines[0].x2, lines[0].y2}), (ViewPoint{area.right(), area.top()}));
  EXPECT_THAT((std::vector{lines[0].mode, lines[0].style, lines[0].colour}), ElementsAre(1, 0, 12));
}

TEST_F(NormalityPlot, DegenerateSamples) {
  EXPECT_THAT(graph.overlay(), SizeIs(0)) << "nothing before a fit";
  draw({0.5F}, 2);
  ASSERT_THAT(graph.settings.points, SizeIs(1));
  EXPECT_EQ(graph.settings.points[0].value, 0) << "one case: zero";
  draw({-2, 1, 1}, 0);
  for (const GraphPoint& point : graph.settings.points) EXPECT_EQ(point.value, 2) << "s is zero";
}

// R: the residuals of lm(Y ~ X1 + X2 + X3 + X4), sorted, and s * qnorm((1:13 - .5) / 13).
TEST_F(NormalityPlot, IsToldInWords) {
  state = cementModel();
  test::analyse(state, desktop);
  plot.UpdateDisplay();
  EXPECT_EQ(graph.accessibleName(), "Normality Plot for Residuals");
  EXPECT_EQ(graph.accessibleDescription(),
            "Normality plot of 13 residuals, observed from -3.175 to 3.925 against the values "
            "expected of a normal sample; correlation of the points 0.9851. The point farthest "
            "from the diagonal is residual 1 in rising order: observed -3.175, expected -4.327.");
  EXPECT_THAT(all<SymbolPrimitive>(graph.picture()), SizeIs(13));
}

}  // namespace
}  // namespace tolmer
