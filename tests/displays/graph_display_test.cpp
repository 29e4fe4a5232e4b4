// What every graph display does apart from drawing.
#include "displays/graph_display.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "graphs/graph_fixture.h"
#include "graphs/residual_histogram.h"
#include "support/graph_pictures.h"

namespace tolmer {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class GraphDisplayTest : public test::DisplayFixture {
 protected:
  GraphDisplayTest() {
    state = noisyModel(24, 2);
    test::analyse(state, desktop);
  }

  frmResidHist display{desktop, state, host};
  Graph& graph = display.gphResidHist;
};

TEST_F(GraphDisplayTest, AResizeFitsAndRedrawsTheGraph) {
  test::setInnerSize(display, 500, 300);
  EXPECT_EQ(graph.place(), (Rect{0, 0, pixels(500), pixels(300)}));
  EXPECT_EQ(graph.picture().size.width, 500);
  EXPECT_THAT(graph.overlay(), Not(IsEmpty()));
  EXPECT_TRUE(state.bProcessResize);
  EXPECT_EQ(display.updateLocks(), 0);
}

TEST_F(GraphDisplayTest, AResizeByTheShellDoesNothing) {
  state.bProcessResize = false;
  test::setInnerSize(display, 500, 300);
  EXPECT_EQ(graph.place(), Rect{});
  EXPECT_THAT(graph.picture().primitives, IsEmpty());
  EXPECT_FALSE(state.bProcessResize);
}

TEST_F(GraphDisplayTest, WithoutAFitThereIsNothingToDraw) {
  AnalysisState empty;
  frmResidHist early(desktop, empty, host);
  test::setInnerSize(early, 500, 300);
  EXPECT_THAT(early.gphResidHist.overlay(), IsEmpty());
}

// A window may change its size between the choice of a model and its analysis.
TEST_F(GraphDisplayTest, DrawsNothingOfAModelThatIsNotAnalysedYet) {
  test::setInnerSize(display, 500, 300);
  const AnalysisState analysed = state;
  for (const auto& [cases, predictors] : {std::pair{10, 2}, std::pair{24, 9}, std::pair{99, 2}}) {
    state.iNumCases = static_cast<Int16>(cases);
    state.iNumPredictors = static_cast<Int16>(predictors);
    RedimDataArrays(state);
    state.iModelCol[1] = 1;
    test::setInnerSize(display, 510 + cases, 300);
    EXPECT_THAT(graph.accessibleDescription(), HasSubstr("of 24 residuals"));
    EXPECT_EQ(graph.picture().size.width, 500) << cases << " cases, " << predictors;
    state = analysed;
  }
}

TEST_F(GraphDisplayTest, ClicksReachThePanelAndTheMenu) {
  EXPECT_EQ(display.GraphPointer, &graph);
  graph.click();
  raise(display.Click);
  EXPECT_THAT(host.calls, ElementsAre("disabled", "disabled"));
  raise(graph.MouseUp, MouseButton::left);
  EXPECT_EQ(state.frmCurrentDisplay, nullptr);
  raise(graph.MouseUp, MouseButton::right);
  EXPECT_THAT(host.calls, ElementsAre("disabled", "disabled", "menu"));
  EXPECT_EQ(state.frmCurrentDisplay, &display);
}

TEST_F(GraphDisplayTest, AMaximisedGraphHasNoMenu) {
  display.setState(WindowState::maximised);
  raise(graph.MouseUp, MouseButton::right);
  EXPECT_THAT(host.calls, IsEmpty());
  EXPECT_EQ(state.frmCurrentDisplay, nullptr);
}

TEST_F(GraphDisplayTest, TheCopyCarriesBarsAndCurve) {
  test::setInnerSize(display, 500, 300);
  display.CopyGraph();
  const std::string& svg = desktop.clipboard().svg;
  EXPECT_THAT(svg, HasSubstr("<title>Histogram of Residuals</title>"));
  EXPECT_THAT(svg, HasSubstr("<desc>Histogram of 24 residuals"));
  EXPECT_THAT(svg, HasSubstr("stroke=\"#1a4fe0\""));
  EXPECT_THAT(svg, HasSubstr("stroke=\"#d91e18\""));
  EXPECT_THAT(desktop.clipboard().text, IsEmpty());
}

}  // namespace
}  // namespace tolmer
