#include "displaywindows/interpretation_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/headless/headless_desktop.h"
#include "platform/user_input.h"
#include "support/recording_host.h"
#include "tables/table_support.h"

namespace tolmer {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

class InterpretationDisplayTest : public testing::Test {
 protected:
  InterpretationDisplayTest() { frame.adopt(display); }

  bool press(const KeyPress& key) {
    const TakenKey* taken = takenKey(display, key);
    if (taken) raise(taken->work);
    return taken != nullptr;
  }

  HeadlessDesktop desktop;
  test::RecordingHost host;
  AnalysisState state = test::cementAnalysis(true);
  FrameWindow frame{desktop, "mdiReg", "Tolmer"};
  frmInterpretation display{desktop, state, host, *findDisplay("frmInterpretation")};
  TextBox& text = display.txtInterpretation;
};

TEST_F(InterpretationDisplayTest, FillsTheWindowOnceTheProgramHasStarted) {
  state.bStartingUp = true;
  display.reportInnerSize({6000, 4000});
  EXPECT_EQ(text.text(), "");
  state.bStartingUp = false;
  display.reportInnerSize({6000, 4500});
  EXPECT_EQ(display.fraInterpretation.place(), (Rect{10, -50, 5960, 4500}));
  EXPECT_EQ(text.place(), (Rect{100, 150, 5790, 4300}));
  EXPECT_THAT(text.text(), StartsWith("FITTED MODEL\r\nHeat = 62.41"));
  const float small = text.font().pixels;
  display.reportInnerSize({pixels(1900), pixels(980)});
  EXPECT_GT(text.font().pixels, small);
  display.reportInnerSize({30, 15});
  EXPECT_EQ(text.place(), (Rect{100, 150, 0, 0}));
}

TEST_F(InterpretationDisplayTest, ClicksReachThePanelAndTheMenu) {
  raise(display.Click);
  raise(display.fraInterpretation.MouseUp, MouseButton::left);
  raise(text.MouseUp, MouseButton::left);
  EXPECT_THAT(host.calls, ElementsAre("disabled", "disabled", "disabled"));
  EXPECT_EQ(state.frmCurrentDisplay, nullptr);
  host.calls.clear();
  display.reportState(WindowState::maximised);
  for (Control* control :
       {static_cast<Control*>(&display), static_cast<Control*>(&display.fraInterpretation),
        static_cast<Control*>(&text)})
    raise(control->MouseUp, MouseButton::right);
  EXPECT_THAT(host.calls, ElementsAre("menu", "menu", "menu"));
  EXPECT_EQ(state.frmCurrentDisplay, &display);
}

TEST_F(InterpretationDisplayTest, KeysScrollWithoutACaretAndOpenTheMenu) {
  display.activate();
  EXPECT_TRUE(display.cmdFocus.hasFocus());
  EXPECT_TRUE(press({.code = keys::pageDown}));
  EXPECT_EQ(text.lastScrollKey(), keys::pageDown);
  EXPECT_FALSE(press({.code = keys::tab}));
  EXPECT_FALSE(press({.code = keys::f10}));
  EXPECT_TRUE(press({.code = keys::menu}));
  EXPECT_TRUE(press({.code = keys::f10, .shift = true}));
  EXPECT_THAT(host.calls, ElementsAre("menu", "menu"));
  text.setFocus();
  EXPECT_FALSE(press({.code = keys::pageUp})) << "the box scrolls by itself";
}

}  // namespace
}  // namespace tolmer
