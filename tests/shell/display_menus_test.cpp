// All displays in all quadrants, by both menus.
#include <gmock/gmock.h>

#include "platform/graph/graph.h"
#include "shell/display_checks.h"
#include "shell/shipped_program.h"

namespace tolmer::test {
namespace {

class DisplayMenus : public ShippedProgram {
 protected:
  void SetUp() override { startWithDefaultExample(); }
  ShellParts& parts() { return module.parts(); }
  Window& displayAt(const std::string& tag) {
    for (Window* child : parts().frame.childWindows())
      if (child->visible() && child->tag() == tag) return *child;
    throw std::runtime_error("nothing stands at " + tag);
  }
  void replaceByPopup(const std::string& tag, DisplayId id) {
    // Greyed or not: what stands already must stay.
    desktop.onPopupMenu = [&](MenuItem&, Window&) {
      parts().menus.displays.entry(id.iCategory, id.iIndex)->click();
    };
    user.rightClick(displayAt(tag).name());
  }
  void replaceByMainMenu(const std::string& tag, DisplayId id) {
    displayAt(tag).activate();
    parts().frame.mnuWindow.click();
    MenuItem& entry = *parts().frame.displays.entry(id.iCategory, id.iIndex);
    if (entry.enabled()) entry.click();
  }
};

TEST_F(DisplayMenus, BringEveryDisplayIntoEveryQuadrantOnce) {
  ASSERT_GE(displayList().size(), 14U);
  for (const bool byPopup : {true, false}) {
    for (const std::string tag : {"11", "21", "22"})
      for (const Display& display : displayList()) {
        const DisplayId id = display.id;
        const bool stoodElsewhere =
            parts().state.iDisplayState(id.iCategory, id.iIndex) == displayShown;
        const std::string before = displayAt(tag).name();
        byPopup ? replaceByPopup(tag, id) : replaceByMainMenu(tag, id);
        const std::string wanted = parts().displays.display(id.iCategory, id.iIndex)->name();
        EXPECT_EQ(displayAt(tag).name(), stoodElsewhere ? before : wanted);
        expectSoundQuadrants(parts());
        expectFreshDisplays(parts());
      }
    parts().manager.RestoreInitialDisplays();
    expectSoundQuadrants(parts());
    for (const auto& [tag, name] :
         {std::pair{"11", "frmEstCoef"}, {"21", "frmANOVA"}, {"22", "frmResidHist"}})
      EXPECT_EQ(displayAt(tag).name(), name);
  }
  EXPECT_THAT(desktop.boxes(), testing::IsEmpty());
}

TEST_F(DisplayMenus, ThePanelOffersPlotsAndIsNotReplacedByThem) {
  parts().panel.activate();
  parts().frame.mnuWindow.click();
  EXPECT_FALSE(parts().frame.displays.mnuGraphList.enabled());
  EXPECT_FALSE(parts().frame.displays.mnuTableList.enabled());
  EXPECT_FALSE(parts().frame.displays.entry(textDisplays, 1)->enabled());
  user.menu("mdiReg", "Displays/Scatter Plots/Scatter Plot 1");
  expectSoundQuadrants(parts());
  EXPECT_EQ(parts().state.iDisplayState(scatterDisplays, 1), displayHidden);
}

TEST_F(DisplayMenus, ThePanelsLettersAndTheKeysReachItFromAnyQuadrant) {
  EXPECT_EQ(parts().frame.mnemonicButton('c'), &parts().panel.cmdChangeModel);
  EXPECT_EQ(parts().frame.mnemonicButton('U'), nullptr) << "no plot to update";
  displayAt("11").activate();
  std::string way;
  for (int step = 0; step < 4; ++step) {
    parts().frame.activateNext();
    way += parts().frame.activeChild()->tag() + " ";
  }
  EXPECT_EQ(way, "12 21 22 11 ");
  parts().frame.toggleMaximised();
  parts().frame.activateNext(false);
  EXPECT_EQ(parts().frame.activeChild()->tag(), "22");
  EXPECT_EQ(displayAt("11").state(), WindowState::normal);
}

TEST_F(DisplayMenus, EachPlotKeepsItsAxesAndGivesUpWhatWasNotDrawn) {
  replaceByPopup("11", {scatterDisplays, 1});
  replaceByPopup("21", {scatterDisplays, 2});
  const auto titles = [&](int plot) {
    const GraphSettings& drawn =
        parts().displays.display(scatterDisplays, plot)->GraphPointer->plot().settings;
    return drawn.y.title + " / " + drawn.x.title;
  };
  EXPECT_EQ(titles(1), "Residuals / Fitted StackLoss");
  EXPECT_EQ(titles(2), "Fitted StackLoss / StackLoss");
  user.choose("frmControlPanel", "cboXAxisVar", "Entry Order");
  user.click("frmControlPanel", "cmdUpdateGraphs");
  EXPECT_EQ(titles(2), "Fitted StackLoss / Order of Entry");
  user.choose("frmControlPanel", "cboYAxisVar", "StackLoss");
  EXPECT_TRUE(parts().panel.tmrFlashUpdate.enabled());
  user.click("frmScatterPlot1", "gphScatter");
  EXPECT_FALSE(parts().panel.tmrFlashUpdate.enabled());
  EXPECT_EQ(parts().panel.fraScatterControls.caption(), "Scatter Plot 1");
  EXPECT_EQ(parts().panel.cboXAxisVar.listIndex(), 4);
  user.click("frmScatterPlot2", "gphScatter");
  EXPECT_EQ(parts().panel.cboXAxisVar.listIndex(), 5);
  EXPECT_EQ(titles(1), "Residuals / Fitted StackLoss");
  EXPECT_EQ(titles(2), "Fitted StackLoss / Order of Entry");
  expectSoundQuadrants(parts());
}

TEST_F(DisplayMenus, ARefitShowsNewNumbersEverywhere) {
  replaceByPopup("11", {tableDisplays, 6});
  replaceByPopup("21", {scatterDisplays, 3});
  script.window("frmModelDesign", [&] {
    user.click("frmModelDesign", "chkUseIntercept");
    user.click("frmModelDesign", "cmdOK");
  });
  user.click("frmControlPanel", "cmdChangeModel");
  expectSoundQuadrants(parts());
  for (const Display& display : displayList()) {
    replaceByPopup("21", display.id);
    expectFreshDisplays(parts());
  }
}

}  // namespace
}  // namespace tolmer::test
