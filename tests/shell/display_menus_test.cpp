// What the menus of displays and the panel do that random users (random_user_test.cpp) cannot
// judge.
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
};

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
  displayAt("11").activate();
  std::string pressed;
  parts().panel.cmdChangeModel.Click = [&] { pressed += 'c'; };
  parts().panel.cmdUpdateGraphs.Click = [&] { pressed += 'u'; };
  for (const int letter : {'C', 'U'}) user.key("mdiReg", {letter, false, false, true});
  EXPECT_EQ(pressed, "c") << "no plot to update";
  std::string way;
  for (int step = 0; step < 5; ++step) {
    user.key("mdiReg", {keys::f6});
    way += parts().frame.focus() ? "foot " : parts().frame.activeChild()->tag() + " ";
  }
  EXPECT_EQ(way, "12 21 22 foot 11 ");
  user.key("mdiReg", {keys::f10, false, true});
  user.key("mdiReg", {keys::tab, true, true});
  EXPECT_EQ(displayAt("11").state(), WindowState::maximised) << "it covers no line at the foot";
  user.key("mdiReg", {keys::enter});
  EXPECT_TRUE(parts().notesWindow.visible());
  user.key("mdiReg", {keys::tab, true, true});
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

}  // namespace
}  // namespace tolmer::test
