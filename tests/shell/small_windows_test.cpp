// Hint and About box by themselves.
#include <gtest/gtest.h>

#include "shell/about.h"
#include "shell/hint.h"
#include "support/headless_user.h"
#include "support/layout_check.h"
#include "support/script.h"

namespace tolmer {
namespace {

class SmallWindows : public testing::Test {
 protected:
  HeadlessDesktop desktop;
  test::HeadlessUser user{desktop};
  test::Script script{desktop};
};

TEST_F(SmallWindows, theHintBlinksUntilItIsClosed) {
  frmHint hint(desktop, "art");
  const auto sees = [&](const char* picture, Colour ground) {
    EXPECT_EQ(hint.imgMouse.file(), std::string("art/") + picture);
    EXPECT_EQ(hint.pnlHint.backColour(), ground);
  };
  desktop.advance(5000);
  sees("mouse_on.svg", colours::buttonFace);
  script.window("frmHint", [&] {
    EXPECT_EQ(test::layoutFaults(hint), "");
    desktop.advance(1000);
    sees("mouse_off.svg", colours::buttonFace);
    desktop.advance(1000);
    sees("mouse_on.svg", colours::red);
    desktop.advance(1000);
    sees("mouse_off.svg", colours::buttonFace);
    user.click("frmHint", "cmdOK");
  });
  hint.showHint();
  EXPECT_FALSE(hint.tmrMouseBlink.enabled());
  EXPECT_FALSE(hint.visible());
}

TEST_F(SmallWindows, oneTitleStandsAtTheMiddleOfTheIconAndTwoInTheirPlaces) {
  frmAbout about(desktop);
  about.ModuleTitleLine1 = "Tolmer";
  about.ModuleVersion = "Version 2.00";
  const auto topsWith = [&](const std::string& secondLine) {
    about.ModuleTitleLine2 = secondLine;
    script.window("frmAbout", [&] {
      EXPECT_EQ(about.lblTitle1.caption(), "Tolmer");
      EXPECT_EQ(about.lblTitle2.caption(), secondLine);
      EXPECT_EQ(about.lblVersion.caption(), "Version 2.00");
      EXPECT_EQ(test::layoutFaults(about), "");
      user.click("frmAbout", "cmdOK");
    });
    about.ShowAbout();
    return std::pair(about.lblTitle1.top(), about.lblTitle2.top());
  };
  const auto design = topsWith("and a line more");
  const auto single = topsWith("");
  EXPECT_EQ(2 * single.first + about.lblTitle1.height(),
            about.imgIcon.top() + about.imgIcon.bottom());
  EXPECT_EQ(topsWith("and a line more"), design);
  EXPECT_NE(design.first, single.first);
}

TEST_F(SmallWindows, aPressOnTheAddressCopiesItAndIsRedWhileItLasts) {
  frmAbout about(desktop);
  about.lblWebAddress.setForeColour(colours::windowText);
  raise(about.lblWebAddress.MouseDown, MouseButton::left);
  raise(about.lblWebAddress.MouseDown, MouseButton::right);
  EXPECT_EQ(about.lblWebAddress.foreColour(), colours::red);
  const std::string address = desktop.clipboard().text;
  EXPECT_TRUE(address.starts_with("https://")) << address;
  EXPECT_NE(about.lblWebAddress.caption().find("\n" + address + "\n"), std::string::npos);
  raise(about.lblWebAddress.MouseUp, MouseButton::left);
  EXPECT_EQ(about.lblWebAddress.foreColour(), colours::windowText);
}

}  // namespace
}  // namespace tolmer
