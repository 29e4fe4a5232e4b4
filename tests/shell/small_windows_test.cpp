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
    user.key("frmHint", {keys::escape});
  });
  hint.showHint();
  EXPECT_FALSE(hint.tmrMouseBlink.enabled());
  EXPECT_FALSE(hint.visible());
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
