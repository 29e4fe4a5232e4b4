// Windows, keys, modal loops, timers and the frame, on each desktop.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "mirrors/stage.h"
#include "platform/buttons.h"
#include "platform/fields.h"
#include "platform/labels.h"

namespace tolmer::test {
namespace {

struct Dialog : Window {
  Dialog(Desktop& desktop, std::string name)
      : Window(desktop, std::move(name), WindowStyle::dialog, "Dialog"),
        txtName(this, "txtName"),
        cmdHelp(this, "cmdHelp", "&Help"),
        cmdOK(this, "cmdOK", "OK"),
        cmdCancel(this, "cmdCancel", "Cancel") {
    setPlace({pixels(60), pixels(60), pixels(300), pixels(240)});
    int row = 0;
    for (Control* control : {static_cast<Control*>(&txtName), static_cast<Control*>(&cmdHelp),
                             static_cast<Control*>(&cmdOK), static_cast<Control*>(&cmdCancel)})
      control->setPlace(at(row++));
    cmdOK.setDefault(true);
    cmdCancel.setCancel(true);
    cmdHelp.Click = [this] { pressed += 'h'; };
    cmdOK.Click = [this] {
      pressed += 'o';
      hide();
    };
    cmdCancel.Click = [this] {
      pressed += 'c';
      hide();
    };
  }
  TextBox txtName;
  Button cmdHelp;
  Button cmdOK;
  Button cmdCancel;
  std::string pressed;
};

class WindowsSuite : public StageTest {};

TEST_P(WindowsSuite, ReturnAndEscapePressTheirButtons) {
  Dialog dialog(desktop, "frm");
  dialog.show();
  dialog.txtName.setFocus();
  user.key("frm", {keys::enter});
  EXPECT_EQ(dialog.pressed, "o");
  EXPECT_FALSE(dialog.visible());
  dialog.show();
  dialog.cmdHelp.setFocus();
  user.key("frm", {keys::enter});
  EXPECT_EQ(dialog.pressed, "oh") << "a button with the focus takes Return itself";
  user.key("frm", {keys::escape});
  EXPECT_EQ(dialog.pressed, "ohc");
  dialog.show();
  dialog.txtName.setFocus();
  dialog.cmdOK.setEnabled(false);
  user.key("frm", {keys::enter});
  EXPECT_EQ(dialog.pressed, "ohc");
}

TEST_P(WindowsSuite, TabGoesThroughWhatCanBeUsed) {
  Dialog dialog(desktop, "frm");
  dialog.cmdHelp.setEnabled(false);
  std::string events;
  dialog.txtName.LostFocus = [&] { events += "-t"; };
  dialog.cmdOK.GotFocus = [&] { events += "+o"; };
  dialog.show();
  dialog.txtName.setFocus();
  events.clear();
  user.key("frm", {keys::tab});
  EXPECT_EQ(dialog.focus(), &dialog.cmdOK);
  EXPECT_EQ(events, "-t+o");
  user.key("frm", {keys::tab});
  user.key("frm", {keys::tab});
  EXPECT_EQ(dialog.focus(), &dialog.txtName);
  user.key("frm", {keys::tab, true});
  EXPECT_EQ(dialog.focus(), &dialog.cmdCancel);
}

TEST_P(WindowsSuite, KeysGoToTheControlAndThenToItsWindow) {
  Dialog dialog(desktop, "frm");
  std::string seen;
  bool takesEscape = true;
  dialog.txtName.takeKey({keys::f2}, [&] { seen += "t2"; });
  dialog.takeKey({keys::f2}, [&] { seen += "w2"; });
  dialog.takeKey(
      {keys::escape}, [&] { seen += "w27"; }, [&] { return takesEscape; });
  dialog.takeKey({keys::f1, Held::no, Held::yes}, [&] { seen += "w^1"; });
  dialog.show();
  dialog.txtName.setFocus();
  user.key("frm", {keys::f1});
  user.key("frm", {.code = keys::f1, .shift = true, .control = true});
  user.key("frm", {.code = keys::f1, .control = true});
  user.key("frm", {keys::f2});
  user.key("frm", {keys::escape});
  EXPECT_EQ(seen, "w^1t2w27");
  EXPECT_EQ(dialog.pressed, "") << "a key that is taken presses nothing";
  dialog.cmdHelp.setFocus();
  takesEscape = false;
  user.key("frm", {keys::f2});
  user.key("frm", {keys::escape});
  EXPECT_EQ(seen + dialog.pressed, "w^1t2w27w2c");
}

TEST_P(WindowsSuite, ModalWindowsNestAndKeepOthersOut) {
  Dialog outer(desktop, "frmOuter");
  Dialog inner(desktop, "frmInner");
  std::string order;
  outer.cmdHelp.Click = [&] {
    inner.showModal();
    order += "inner ";
    desktop.messageBox({"Title", "Text", MessageIcon::question, MessageButtons::yesNo});
    order += "box ";
  };
  script.window("frmOuter", [&] {
    user.click("frmOuter", "cmdHelp");
    user.click("frmOuter", "cmdOK");
  });
  script.window("frmInner", [&] {
    EXPECT_ANY_THROW(user.click("frmOuter", "cmdOK"));
    EXPECT_TRUE(inner.isModal());
    user.click("frmInner", "cmdCancel");
  });
  script.box("Title", "Text", Answer::no);
  outer.showModal();
  order += "outer";
  EXPECT_EQ(order, "inner box outer");
  EXPECT_EQ(outer.pressed + inner.pressed, "oc");
  script.finish();
}

// The program ends from a box over a modal window over a modal window: the lines after each call do
// not run, locals are destroyed, and nothing enters afterwards.
TEST_P(WindowsSuite, ProgramEndsFromWithinNestedWindows) {
  Dialog outer(desktop, "frmOuter");
  Dialog inner(desktop, "frmInner");
  struct Local {
    std::string& log;
    ~Local() { log += 'd'; }
  };
  std::string log;
  inner.cmdHelp.Click = [&] {
    const Local local{log};
    desktop.messageBox({"Tolmer", "Exit module?", MessageIcon::question, MessageButtons::yesNo});
    desktop.endProgram(3);
  };
  outer.cmdHelp.Click = [&] {
    const Local local{log};
    inner.showModal();
    log += "after inner";
  };
  script.window("frmOuter", [&] {
    user.click("frmOuter", "cmdHelp");
    log += "after click";
  });
  script.window("frmInner", [&] { user.click("frmInner", "cmdHelp"); });
  script.box("Tolmer", "Exit module?", Answer::yes);
  try {
    outer.showModal();
    FAIL() << "the program goes on";
  } catch (const ProgramEnded& ended) {
    EXPECT_EQ(ended.status, 3);
  }
  EXPECT_EQ(log, "dd");
}

TEST_P(WindowsSuite, TimersGoOnWhileATickWaitsInAModalWindow) {
  Dialog dialog(desktop, "frm");
  int quick = 0;
  Timer slow(desktop.timers(), "tmrSlow", 1000, true);
  Timer fast(desktop.timers(), "tmrFast", 50, true);
  fast.Tick = [&] {
    if (dialog.visible() && ++quick == 6) dialog.hide();
  };
  slow.Tick = [&] {
    slow.setEnabled(false);
    script.window("frm");
    dialog.showModal();
  };
  stage->advance(1000);
  EXPECT_EQ(quick, 6);
  EXPECT_FALSE(dialog.visible());
}

TEST_P(WindowsSuite, HiddenOuterWindowWaitsForTheInnerOne) {
  Dialog outer(desktop, "frmOuter");
  Dialog inner(desktop, "frmInner");
  std::string order;
  script.window("frmOuter", [&] {
    script.window("frmInner", [&] {
      outer.hide();
      order += "hidden ";
      user.click("frmInner", "cmdOK");
    });
    inner.showModal();
    order += "inner ";
  });
  outer.showModal();
  EXPECT_EQ(order + "outer", "hidden inner outer");
}

TEST_P(WindowsSuite, CloseBoxAsksFirst) {
  Dialog dialog(desktop, "frm");
  bool refuse = true;
  dialog.QueryUnload = [&](bool& cancel) { cancel = refuse; };
  dialog.show();
  user.close("frm");
  EXPECT_TRUE(dialog.visible());
  refuse = false;
  user.close("frm");
  EXPECT_FALSE(dialog.visible());
}

struct Quadrants : FrameWindow {
  explicit Quadrants(Desktop& desktop)
      : FrameWindow(desktop, "mdi", "Frame"),
        first(desktop, "frmFirst", WindowStyle::child, "First"),
        second(desktop, "frmSecond", WindowStyle::child, "Second") {
    setMenuBar(&bar);
    line.setCheckable(true);
    show();
    desktop.doEvents();  // a window manager gives the frame its size
    Twips left = 0;
    for (Window* child : {&first, &second}) {
      adopt(*child);
      child->QueryUnload = [](bool& cancel) { cancel = true; };
      child->setPlace({left, 0, pixels(400), pixels(300)});
      left += pixels(400);
      child->show();
    }
  }
  MenuItem bar{nullptr, "bar"};
  MenuItem file{&bar, "mnuFile", "&File"};
  MenuItem save{&file, "mnuFileSave", "&Save"};
  MenuItem options{&bar, "mnuOptions", "&Options"};
  MenuItem deeper{&options, "mnuDeeper", "&Deeper"};
  MenuItem line{&deeper, "mnuLine", "Show &line"};
  Window first;
  Window second;
};

struct Footed : Quadrants {
  explicit Footed(Desktop& desktop) : Quadrants(desktop) {
    ground = innerHeight();
    setFootHeight(pixels(25));
    link.setIsLink(true);
    link.setPlace({0, 0, pixels(90), pixels(25)});
    announceChildren();
    show();
    desktop.doEvents();
  }
  Twips ground = 0;
  Label link{this, "lnk", "2 notes"};
};

TEST_P(WindowsSuite, AFootTakesItsHeightFromTheGroundAndIsReachedAfterTheLastChild) {
  Footed frame(desktop);
  EXPECT_EQ(frame.innerHeight(), frame.ground - pixels(25));
  int clicks = 0;
  frame.link.Click = [&] { ++clicks; };
  frame.activate(frame.second);
  frame.activateNext();
  EXPECT_TRUE(frame.link.hasFocus());
  user.key("mdi", {keys::enter});
  user.click("mdi", "lnk");
  EXPECT_EQ(clicks, 2);
  frame.link.setFocus();
  frame.activate(frame.second);
  EXPECT_FALSE(frame.link.hasFocus()) << "back where it came from";
}

TEST_P(WindowsSuite, ChildIsMaximisedAndRestored) {
  Quadrants frame(desktop);
  int resizes = 0;
  frame.second.Resize = [&] { ++resizes; };
  user.maximise("frmSecond");
  EXPECT_EQ(frame.second.state(), WindowState::maximised);
  EXPECT_EQ(frame.second.innerWidth(), frame.innerWidth());
  EXPECT_EQ(frame.second.innerHeight(), frame.innerHeight());
  EXPECT_EQ(resizes, 1);
  user.restore("frmSecond");
  EXPECT_EQ(frame.second.innerWidth(), pixels(400) - 2 * FrameWindow::childSide);
  EXPECT_EQ(resizes, 2);
  frame.second.setState(WindowState::maximised);
  frame.second.setState(WindowState::normal);
  EXPECT_EQ(resizes, 4);
  user.close("frmSecond");
  EXPECT_TRUE(frame.second.visible());
}

TEST_P(WindowsSuite, OneChildIsActive) {
  Quadrants frame(desktop);
  EXPECT_EQ(frame.activeChild(), &frame.second);
  std::string events;
  frame.first.Activate = [&] { events += '1'; };
  frame.second.Activate = [&] { events += '2'; };
  frame.first.activate();
  frame.first.activate();
  EXPECT_EQ(events, "1");
  frame.first.setState(WindowState::maximised);
  frame.second.activate();
  EXPECT_EQ(frame.activeChild(), &frame.second);
  EXPECT_EQ(frame.first.state(), WindowState::maximised);
  EXPECT_EQ(frame.second.state(), WindowState::normal) << "only told windows are maximised";
  EXPECT_EQ(events, "12");
}

TEST_P(WindowsSuite, KeysLeadAroundTheFrameFromWhateverHasTheFocus) {
  Quadrants frame(desktop);
  TextBox text(&frame.first, "txt");
  text.setMultiLine(true);
  text.setReadOnly(true);  // one that is written in takes the letter
  Button go(&frame.second, "cmdGo", "&Go");
  int pressed = 0;
  go.Click = [&] { ++pressed; };
  for (Window* child : {&frame.first, &frame.second}) {
    child->children()[0]->setPlace({0, 0, pixels(100), pixels(30)});
    child->announceChildren();
  }
  frame.first.activate();
  text.setFocus();
  user.key("frmFirst", {'G', false, false, true});
  EXPECT_EQ(pressed, 1);
  EXPECT_EQ(frame.activeChild(), &frame.first);
  for (const KeyPress& key : {KeyPress{keys::f6}, {keys::f6, true}, {keys::tab, false, true}}) {
    const Window* before = frame.activeChild();
    user.key(before->name(), key);
    EXPECT_NE(frame.activeChild(), before) << key.code;
  }
  user.key("frmSecond", {keys::tab, true, true});
  EXPECT_EQ(frame.activeChild(), &frame.first);
  user.key("frmFirst", {keys::f10, false, true});
  EXPECT_EQ(frame.first.state(), WindowState::maximised);
}

TEST_P(WindowsSuite, MenusOpenAndChoose) {
  Quadrants frame(desktop);
  std::string events;
  frame.file.Click = [&] { events += "file "; };
  frame.save.Click = [&] { events += "save "; };
  frame.line.Click = [&] {
    events += "line ";
    frame.line.setChecked(true);
  };
  user.menu("mdi", "File/Save");
  EXPECT_EQ(events, "file save ") << "a menu is told that it opens";
  user.menu("mdi", "Options/Deeper/Show line");
  user.menu("mdi", "Options/Deeper/Show line");
  EXPECT_TRUE(frame.line.checked()) << "the tick is the program's";
  frame.save.setEnabled(false);
  EXPECT_ANY_THROW(user.menu("mdi", "File/Save"));
}

INSTANTIATE_TEST_SUITE_P(Desktops, WindowsSuite, stages(), stageName);

}  // namespace
}  // namespace tolmer::test
