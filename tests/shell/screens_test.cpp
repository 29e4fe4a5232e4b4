// Every window of the program on screens of all sizes: nothing cut off, nothing over another, and
// what closes a window in view.
#include <gmock/gmock.h>

#include <cmath>
#include <map>

#include "editor/graph_title.h"
#include "editor/import_dialog.h"
#include "notebook/notebook_window.h"
#include "platform/dialog_fit.h"
#include "shell/shipped_program.h"
#include "support/layout_check.h"
#include "symbolfile/file_error.h"

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
    ++seen[window.name()];
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
  }
  void expect(const std::string& name, std::function<void()> work) {
    script.window(name, [this, name, work] {
      check(user.window(name));
      work();
    });
  }
  void expect(const std::string& name, const char* way) {
    expect(name, [this, name, way] { user.click(name, way); });
  }
  void everyPage(frmNotebook& book) {
    for (int section = 1; section <= book.tbNoteBook.tabCount(); ++section)
      for (int page = 1; page <= book.tbNoteBook.tab(section - 1).pageMax + 1; ++page) {
        book.goTo(section, page);
        check(book);
        lowestPicture(book);
      }
    book.goTo(1, 1);
  }
  // Axes can be read.
  static void lowestPicture(frmNotebook& book) {
    for (int i = 1; i <= book.elements.imgPicture.last(); ++i) {
      const Image& picture = book.elements.imgPicture(i);
      EXPECT_TRUE(!picture.visible() || picture.height() >= pixels(130)) << picture.file();
    }
  }
  void start() {
    script.window("frmOpeningBook", [&] { check(user.window("frmOpeningBook")); });
    script.window("frmNotebook", [&] {
      everyPage(module.parts().notebook.window());
      user.click("frmNotebook", "cmdOK");
    });
    expect("frmModelDesign", "cmdOK");
    expect("frmHint", "cmdOK");
    module.Main();
  }
  void quadrants() {
    const mdiReg& frame = module.parts().frame;
    for (const Window* child : frame.childWindows())
      if (child->visible()) {
        EXPECT_LE(child->right(), frame.innerWidth()) << child->name();
        EXPECT_LE(child->bottom(), frame.innerHeight()) << child->name();
        EXPECT_GE(2 * child->width() + twipsPerPixel, frame.innerWidth()) << child->name();
      }
    check(module.parts().panel);
  }
  void useEditor() {
    const auto menu = [&](const char* path) { user.menu("frmDataEditor", path); };
    user.type("frmDataEditor", "spdData", "1");
    user.key("frmDataEditor", {keys::enter});
    expect("frmFind", "cmdClose");
    menu("Edit/Find...");
    expect("frmNumericFormat", "cmdCancel");
    menu("Options/Format/Standard Format...");
    expect("frmNumericFormat", "cmdCancel");
    menu("Options/Format/Individual Column Format...");
    expect("frmSortOptions", "cmdCancel");
    menu("Options/Sort...");
    script.finish();
    desktop.onMessageBox = [](const MessageBox&) { return Answer::no; };
    user.click("frmDataEditor", "cmdCancel");
  }

  std::map<std::string, int> seen;
};

TEST_P(Screens, ShowEveryWindowWhole) {
  start();
  quadrants();
  expect("frmReport", "cmdCancel");
  user.menu("mdiReg", "File/Save Report...");
  expect("frmAbout", "cmdOK");
  user.menu("mdiReg", "Help/About...");
  desktop.advance(1000);
  user.menu("mdiReg", "Explore/Notes...");
  check(module.parts().notesWindow);
  user.close("frmNotes");
  user.menu("mdiReg", "Explore/Predict...");
  check(module.parts().predictWindow);
  user.close("frmPredict");
  user.menu("mdiReg", "Explore/Compare Models...");
  check(module.parts().modelsWindow);
  user.close("frmModels");
  expect("frmModelDesign", [&] {
    expect("frmShowData", [&] { user.close("frmShowData"); });
    user.click("frmModelDesign", "cmdShowData");
    user.click("frmModelDesign", "cmdCancel");
  });
  user.click("frmControlPanel", "cmdChangeModel");
  script.window("frmNotebook", [&] {
    auto& book = module.parts().notebook.window();
    book.goTo(1, 3);
    expect("frmSampleOnly", "cmdOK");
    book.elements.imgPicture(1).click();
    book.goTo(5, 1);
    expect("frmDataEditor", [&] { useEditor(); });
    user.click("frmNotebook", "cmdOK");
  });
  user.click("frmControlPanel", "cmdShowNotebook");
  EXPECT_EQ(seen.size(), 16U);
}

// Those that need a doubt or a failure to come up.
TEST_P(Screens, ShowRareWindowsWhole) {
  frmFileError error(desktop);
  check(error);
  DataSheet sheet(20, 5);
  frmGraphTitle title(desktop, sheet);
  check(title);
  const auto import = TextImport::read(
      "Name\tx\ty\n1\t1,234\t12 345\nAnn\tNA\t12%\nBob\t$3\tsome words that go on\nCy\n",
      {TextOrigin::clipboard, 1, 1, 500, 50});
  const SheetContent content = newContent(500, 50);
  frmTextImport dialog(desktop, *import, content, "data.csv");
  expect("frmTextImport", "cmdCancel");
  dialog.ask();
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
