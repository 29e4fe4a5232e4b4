// All displays in all quadrants, by both menus; and a student who does anything.
#include <gmock/gmock.h>

#include <random>

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
  ASSERT_EQ(AllDisplays::ids().size(), 14U);
  for (const bool byPopup : {true, false}) {
    for (const std::string tag : {"11", "21", "22"})
      for (const DisplayId id : AllDisplays::ids()) {
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
        parts().displays.display(scatterDisplays, plot)->GraphPointer->settings;
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
  for (const DisplayId id : AllDisplays::ids()) {
    replaceByPopup("21", id);
    expectFreshDisplays(parts());
  }
}

// Always the same student for the same seed.
class RandomStudent {
 public:
  RandomStudent(ShellParts& parts, HeadlessUser& user, Script& script, HeadlessDesktop& desktop,
                unsigned seed)
      : parts_(parts), user_(user), script_(script), desktop_(desktop), random_(seed) {
    desktop_.onPopupMenu = [this](MenuItem&, Window&) { choose(parts_.menus.displays); };
  }

  void act() {
    switch (upTo(11)) {
      case 0:
      case 1:
        return user_.rightClick(child().name());
      case 2:
      case 3:
        child().activate();
        parts_.frame.mnuWindow.click();
        return choose(parts_.frame.displays);
      case 4:
        return clickOnDisplay();
      case 5:
        return chooseAxis(upTo(1) ? parts_.panel.cboXAxisVar : parts_.panel.cboYAxisVar);
      case 6:
        if (parts_.panel.cmdUpdateGraphs.canBeUsed())
          user_.click("frmControlPanel", "cmdUpdateGraphs");
        return;
      case 7:
        return (upTo(1) ? parts_.frame.mnuShowRegression : parts_.frame.mnuShowCorrelation).click();
      case 8:
        return upTo(2) ? parts_.frame.toggleMaximised() : parts_.frame.activateNext(upTo(1) == 1);
      case 9:
        return parts_.frame.reportInnerSize({pixels(static_cast<float>(200 + upTo(1800))),
                                             pixels(static_cast<float>(100 + upTo(900)))});
      case 10:
        desktop_.advance(upTo(1200));
        return parts_.frame.mnuEditCopy.click();
      default:
        if (upTo(9) == 0) changeModel();
    }
  }

 private:
  int upTo(int most) { return std::uniform_int_distribution<int>(0, most)(random_); }
  Window& child() {
    std::vector<Window*> shown;
    for (Window* window : parts_.frame.childWindows()) {
      if (!window->visible()) continue;
      if (window->state() == WindowState::maximised) return *window;  // covers the others
      shown.push_back(window);
    }
    return *shown[static_cast<std::size_t>(upTo(static_cast<int>(shown.size()) - 1))];
  }
  void choose(DisplayMenu& menu) {
    const auto ids = AllDisplays::ids();
    const DisplayId id = ids[static_cast<std::size_t>(upTo(static_cast<int>(ids.size()) - 1))];
    MenuItem& entry = *menu.entry(id.iCategory, id.iIndex);
    if (entry.enabled()) entry.click();
  }
  void clickOnDisplay() {
    const auto* display = dynamic_cast<DisplayWindow*>(&child());
    if (!display) return;
    user_.click(display->name(),
                display->GraphPointer ? display->GraphPointer->name() : std::string());
  }
  void chooseAxis(ComboBox& list) {
    if (list.canBeUsed())
      user_.choose(
          "frmControlPanel", list.name(),
          list.items()[static_cast<std::size_t>(upTo(static_cast<int>(list.items().size()) - 1))]);
  }
  void changeModel() {
    script_.window("frmModelDesign", [&] {
      user_.click("frmModelDesign", "chkUseIntercept");
      user_.click("frmModelDesign", "cmdOK");
    });
    user_.click("frmControlPanel", "cmdChangeModel");
  }

  ShellParts& parts_;
  HeadlessUser& user_;
  Script& script_;
  HeadlessDesktop& desktop_;
  std::mt19937 random_;
};

TEST_F(DisplayMenus, HoldUnderARandomStudent) {
  RandomStudent student(parts(), user, script, desktop, 17);
  for (int action = 1; action <= 10000; ++action) {
    student.act();
    expectSoundQuadrants(parts());
    if (action % 40 == 0) expectFreshDisplays(parts());
    if (HasFailure()) FAIL() << "after action " << action;
  }
  EXPECT_THAT(desktop.boxes(), testing::IsEmpty());
}

}  // namespace
}  // namespace tolmer::test
