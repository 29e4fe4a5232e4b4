#include "shell/control_panel.h"

#include <gtest/gtest.h>

#include "support/headless_user.h"
#include "support/layout_check.h"
#include "support/script.h"

namespace tolmer::test {
namespace {

class ControlPanel : public testing::Test {
 protected:
  void SetUp() override {
    state.iNumPredictors = 2;
    state.iNumCols = 4;
    state.tVarName = {"Intercept", "Air", "Water", "Acid", "Loss"};
    state.iModelCol = {0, 4, 1, 3, 0};
    state.iDataSource = scenarioExample;
    panel.setPlace({0, 0, pixels(640), pixels(380)});
    panel.PositionControls();
    panel.show();
    panel.showModel("Loss = 1 + 2 Air + 3 Acid. ");
    state.bDisplaysReady = true;
    panel.SaveControlState();
  }

  HeadlessDesktop desktop;
  AnalysisState state;
  frmControlPanel panel{desktop, state};
  HeadlessUser user{desktop};
};

TEST_F(ControlPanel, ListsDifferInTheirLastEntryAndPlotsStartAtTheirDefaults) {
  EXPECT_EQ(panel.cboYAxisVar.items(),
            (std::vector<std::string>{"Loss", "Air", "Acid", "Fitted Y", "Residuals"}));
  EXPECT_EQ(panel.cboXAxisVar.items(),
            (std::vector<std::string>{"Loss", "Air", "Acid", "Fitted Y", "Entry Order"}));
  EXPECT_EQ(state.iPlotXVar, (std::array<Int16, 4>{0, 3, 0, 1}));
  EXPECT_EQ(state.iPlotYVar, (std::array<Int16, 4>{0, 4, 3, 0}));
  EXPECT_EQ(panel.cboYAxisVar.listIndex(), 4);
  EXPECT_FALSE(panel.cboXAxisVar.canBeUsed());
  EXPECT_FALSE(panel.cmdUpdateGraphs.canBeUsed());
  EXPECT_TRUE(panel.cmdChangeModel.canBeUsed());
  EXPECT_EQ(panel.txtFittedModel.accessibleName(), "Fitted Model");
}

TEST_F(ControlPanel, UpdateButtonFlashesUntilTheFormerChoiceOrThePress) {
  panel.ControlsEnabled();
  EXPECT_EQ(panel.fraScatterControls.caption(), "Scatter Plot 1");
  user.choose("frmControlPanel", "cboXAxisVar", "Air");
  desktop.advance(500);
  EXPECT_EQ(panel.cmdUpdateGraphs.backColour(), colours::red);
  desktop.advance(500);
  EXPECT_EQ(panel.cmdUpdateGraphs.backColour(), colours::buttonFace);
  desktop.advance(500);
  user.choose("frmControlPanel", "cboXAxisVar", "Fitted Y");
  EXPECT_EQ(panel.cmdUpdateGraphs.backColour(), colours::buttonFace);
  EXPECT_FALSE(panel.tmrFlashUpdate.enabled());

  int updated = 0;
  panel.updateScatterPlot = [&](int plot) { updated = plot; };
  user.choose("frmControlPanel", "cboYAxisVar", "Loss");
  EXPECT_TRUE(panel.tmrFlashUpdate.enabled());
  user.click("frmControlPanel", "cmdUpdateGraphs");
  EXPECT_EQ(updated, 1);
  EXPECT_EQ(state.iPlotYVar[1], 0);
  EXPECT_FALSE(panel.tmrFlashUpdate.enabled());
  panel.CheckUpdateFlash();
  EXPECT_FALSE(panel.tmrFlashUpdate.enabled());
}

TEST_F(ControlPanel, PlotsKeepTheirAxesByNameThroughAnotherModel) {
  state.iPlotXVar = {0, 4, 2, 1};  // entry order, Acid, Air
  state.iPlotYVar = {0, 4, 3, 0};  // residuals, fitted, Loss
  panel.ControlsEnabled();
  state.iNumPredictors = 2;
  state.iModelCol = {0, 4, 2, 3, 0};  // Water in place of Air
  panel.showModel("Loss = 1 + 2 Water + 3 Acid. ", true);
  EXPECT_EQ(state.iPlotXVar, (std::array<Int16, 4>{0, 4, 2, 1}));
  EXPECT_EQ(state.iPlotYVar, (std::array<Int16, 4>{0, 4, 3, 0})) << "the third starts anew";
  EXPECT_TRUE(panel.cboXAxisVar.canBeUsed());
  state.iModelCol = {0, 4, 3, 0};
  state.iNumPredictors = 1;
  panel.showModel("Loss = 1 + 3 Acid. ", true);
  EXPECT_EQ(state.iPlotXVar, (std::array<Int16, 4>{0, 3, 1, 1}));
  EXPECT_EQ(state.iPlotYVar, (std::array<Int16, 4>{0, 3, 2, 0}));
}

TEST_F(ControlPanel, LayoutHoldsAtTheQuadrantsOfBothCommonScreens) {
  for (const auto& [width, height] : {std::pair{640.0F, 378.0F}, std::pair{960.0F, 520.0F}}) {
    panel.setPlace({0, 0, pixels(width), pixels(height)});
    panel.PositionControls();
    EXPECT_EQ(layoutFaults(panel), "") << width;
  }
}

}  // namespace
}  // namespace tolmer::test
