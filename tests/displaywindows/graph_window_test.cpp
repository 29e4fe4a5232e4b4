// What every graph display does apart from drawing.
#include "displaywindows/graph_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "engine/pipeline.h"
#include "platform/headless/headless_desktop.h"
#include "support/graph_pictures.h"
#include "support/recording_host.h"
#include "support/regression_data.h"

namespace tolmer {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

void setInnerSize(Window& window, double width, double height) {
  window.reportInnerSize({pixels(static_cast<float>(width)), pixels(static_cast<float>(height))});
}

class GraphDisplayTest : public testing::Test {
 protected:
  GraphDisplayTest() { Analyse(state, desktop); }

  HeadlessDesktop desktop;
  test::RecordingHost host;
  AnalysisState state = noisyModel(24, 2);
  GraphWindow display{desktop, state, host, *findDisplay("frmResidHist")};
  Graph& graph = *display.GraphPointer;
};

TEST_F(GraphDisplayTest, AResizeByTheShellDoesNothing) {
  state.bProcessResize = false;
  setInnerSize(display, 500, 300);
  EXPECT_EQ(graph.place(), Rect{});
  EXPECT_THAT(graph.plot().picture().primitives, IsEmpty());
  EXPECT_FALSE(state.bProcessResize);
}

// A window may change its size between the choice of a model and its analysis.
TEST_F(GraphDisplayTest, DrawsNothingOfAModelThatIsNotAnalysedYet) {
  setInnerSize(display, 500, 300);
  const AnalysisState analysed = state;
  for (const auto& [cases, predictors] : {std::pair{10, 2}, std::pair{24, 9}, std::pair{99, 2}}) {
    state.iNumCases = static_cast<Int16>(cases);
    state.iNumPredictors = static_cast<Int16>(predictors);
    RedimDataArrays(state);
    state.iModelCol[1] = 1;
    setInnerSize(display, 510 + cases, 300);
    EXPECT_THAT(graph.accessibleDescription(), HasSubstr("of 24 residuals"));
    EXPECT_EQ(graph.plot().picture().size.width, 500) << cases << " cases, " << predictors;
    state = analysed;
  }
}

TEST_F(GraphDisplayTest, ClicksReachThePanelAndTheMenu) {
  EXPECT_EQ(graph.name(), "gphResidHist");
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

TEST_F(GraphDisplayTest, AFailedFitIsSaidFirst) {
  state.Fit.bSingular = true;
  display.UpdateDisplay();
  EXPECT_EQ(display.caption(), "Histogram of Residuals (no valid fit)");
  EXPECT_THAT(graph.accessibleDescription(), HasSubstr("No valid fit. Histogram of 24"));
  EXPECT_EQ(graph.accessibleName(), "Histogram of Residuals");
}

TEST_F(GraphDisplayTest, AClickOnTheVIFChartDisablesTheListsAlone) {
  GraphWindow chart(desktop, state, host, *findDisplay("frmVIFPlot"));
  chart.GraphPointer->click();
  raise(chart.Click);
  EXPECT_THAT(host.calls, ElementsAre("lists disabled", "disabled"));
}

TEST_F(GraphDisplayTest, ThePanelEditsTheScatterPlotThatWasTouchedLast) {
  ScatterWindow first(desktop, state, host, *findDisplay("frmScatterPlot1"));
  EXPECT_EQ(state.iCurrentPlot, 1) << "a new plot";
  EXPECT_THAT(host.calls, ElementsAre("enabled"));
  ScatterWindow third(desktop, state, host, *findDisplay("frmScatterPlot3"));
  EXPECT_EQ(third.caption(), "Scatter Plot 3");
  EXPECT_EQ(state.iCurrentPlot, 3);
  first.Activate();
  EXPECT_EQ(state.iCurrentPlot, 1);
  third.GraphPointer->click();
  EXPECT_EQ(state.iCurrentPlot, 3);
  first.Click();
  EXPECT_EQ(state.iCurrentPlot, 1);
  EXPECT_THAT(host.calls, testing::AllOf(SizeIs(5), testing::Each(std::string("enabled"))));
}

}  // namespace
}  // namespace tolmer
