// Every window of the program on screens of all sizes: nothing cut off, nothing over another, and
// what closes a window in view.
#include <gmock/gmock.h>

#include <cmath>

#include "platform/dialog_fit.h"
#include "shell/every_window.h"
#include "shell/shipped_program.h"
#include "support/layout_check.h"

namespace tolmer::test {
namespace {

// The place in its window, what scrolls not moved.
Rect placeInWindow(const Control& control) {
  Rect place = control.place();
  for (const Control* above = control.parent(); above && above->parent(); above = above->parent()) {
    place.left += above->left();
    place.top += above->top();
  }
  return place;
}

std::string outOfView(const Control& control, const Window& window, const DialogFit& fit) {
  Rect place = placeInWindow(control);
  const bool isInFoot = control.parent() == &window && control.top() >= fit.footTop;
  if (isInFoot) place.left -= fit.footShift;
  const bool fits = place.left >= 0 && place.right() <= fit.shown.width &&
                    (isInFoot || place.bottom() <= fit.shown.height);
  return fits ? "" : control.name() + " of " + window.name() + " is out of view\n";
}

class Screens : public ShippedProgram, public testing::WithParamInterface<Size> {
 protected:
  static constexpr Twips titleBar = pixels(40);

  void SetUp() override {
    const Size screen = GetParam();
    desktop.setScreen({pixels(screen.width), pixels(screen.height)});
  }

  // With the bars that the screen's size asks for.
  void check(Window& window) {
    const Size screen = desktop.screenSize();
    const float times = window.magnification();
    const bool hasBar = window.style() == WindowStyle::dialog;
    const Size room{screen.width / times, (screen.height - (hasBar ? titleBar : 0)) / times};
    const Size whole =
        window.sizable()
            ? Size{std::max(std::min(window.width(), room.width), window.leastInner().width),
                   std::max(std::min(window.height(), room.height), window.leastInner().height)}
            : Size{window.width(), window.height()};
    if (window.sizable()) window.reportInnerSize(whole);
    std::string faults = layoutFaults(window);
    const DialogFit fit = fitDialog(window, whole, room, desktop.scrollBarThickness());
    for (Button* button : {window.defaultButton(), window.cancelButton()})
      if (button && button->visible()) faults += outOfView(*button, window, fit);
    EXPECT_EQ(faults, "") << "on " << GetParam().width << " x " << GetParam().height;
    if (&window == &module.parts().notebook.window()) lowestPicture();
  }
  // Axes can be read.
  void lowestPicture() {
    const PageElements& elements = module.parts().notebook.window().elements;
    for (int i = 1; i <= elements.imgPicture.last(); ++i) {
      const Image& picture = elements.imgPicture(i);
      EXPECT_TRUE(!picture.visible() || picture.height() >= pixels(130)) << picture.file();
    }
  }
  void quadrants() {
    const mdiReg& frame = module.parts().frame;
    for (const Window* child : frame.childWindows())
      if (child->visible()) {
        EXPECT_LE(child->right(), frame.innerWidth()) << child->name();
        EXPECT_LE(child->bottom(), frame.innerHeight()) << child->name();
        EXPECT_GE(2 * child->width() + twipsPerPixel, frame.innerWidth()) << child->name();
      }
  }
};

TEST_P(Screens, ShowEveryWindowWhole) {
  EveryWindow every(desktop, user, script, module, [this](Window& window) { check(window); });
  every.start();
  quadrants();
  desktop.advance(1000);
  every.besideTheQuadrants();
  every.ofOwnData();
  every.rare();
  EXPECT_EQ(every.seen().size(), 22U) << testing::PrintToString(every.seen());
}

// A screen of that size, or a larger one at a factor or zoom.
INSTANTIATE_TEST_SUITE_P(Sizes, Screens,
                         testing::Values(Size{800, 600}, Size{960, 540}, Size{1280, 800},
                                         Size{1366, 768}, Size{1920, 1080}, Size{1024, 640},
                                         Size{1093, 614}, Size{1536, 864}, Size{640, 400},
                                         Size{683, 384}),
                         [](const auto& info) {
                           return std::to_string(static_cast<int>(info.param.width)) + "x" +
                                  std::to_string(static_cast<int>(info.param.height));
                         });

TEST_F(ShippedProgram, EverythingFollowsAnotherScreenAndZoomWhileItStands) {
  startWithDefaultExample();
  mdiReg& frame = module.parts().frame;
  const auto quadrantsFill = [&] {
    for (const Window* child : frame.childWindows())
      if (child->visible()) {
        EXPECT_EQ(child->width(), std::floor(frame.innerWidth() / 2)) << child->name();
        EXPECT_EQ(child->left(), child->tag()[1] == '1' ? 0 : child->width()) << child->name();
        EXPECT_EQ(child->top(), child->tag()[0] == '1' ? 0 : child->height()) << child->name();
      }
    EXPECT_EQ(layoutFaults(module.parts().panel), "");
  };
  DisplayWindow& table = *module.parts().displays.display(tableDisplays, 1);
  user.maximise(table.name());
  desktop.setScreen({pixels(1024), pixels(700)});
  EXPECT_EQ(table.innerWidth(), pixels(1024));
  quadrantsFill();
  user.restore(table.name());
  EXPECT_EQ(table.width(), pixels(512));
  user.key("mdiReg", {.code = keys::plus, .control = true});
  EXPECT_EQ(desktop.zoom(), 125);
  EXPECT_EQ(frame.innerWidth(), pixels(1024) / 1.25F);
  quadrantsFill();
  for (int i = 0; i < 12; ++i) user.key("mdiReg", {.code = keys::minus, .control = true});
  EXPECT_EQ(desktop.zoom(), 75);
  user.key("mdiReg", {.code = '0', .control = true});
  desktop.setScreen({pixels(1280), pixels(800)});
  EXPECT_EQ(frame.innerWidth(), pixels(1280));
  quadrantsFill();
}

}  // namespace
}  // namespace tolmer::test
