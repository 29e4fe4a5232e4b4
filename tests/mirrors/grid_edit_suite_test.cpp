// Editing in a window with a grid, a menu bar and a button, on each desktop.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "mirrors/stage.h"
#include "platform/buttons.h"
#include "platform/fields.h"
#include "platform/grid/edit_grid.h"

namespace tolmer::test {
namespace {

struct EditWindow : Window {
  explicit EditWindow(Desktop& desktop) : Window(desktop, "frmEdit", WindowStyle::dialog, "Edit") {
    setPlace({pixels(40), pixels(40), pixels(420), pixels(320)});
    setMenuBar(&bar);
    setSizable(true);
    txtTitle.setPlace({pixels(10), pixels(10), pixels(200), pixels(26)});
    spdData.setPlace({pixels(10), pixels(46), pixels(400), pixels(200)});
    spdData.setSize(30, 6);
    spdData.showHeadings(false, true);
    spdData.freeze(1, 1);
    spdData.setScrollBars(ScrollBars::both);
    spdData.setStyle({1, 1, 30, 6}, {.type = CellType::text});
    cmdOK.setPlace({pixels(10), pixels(260), pixels(100), pixels(30)});
    cmdOK.setDefault(true);
    cmdOK.Click = [this] { log += "OK "; };
    copy.setShortcut({.code = 'C', .control = true});
    copy.Click = [this] { log += "copy "; };
    save.setShortcut({.code = 'S', .control = true});
    save.Click = [this] { log += "save "; };
    spdData.EditDone = [this](CellPosition cell, const std::string& text, bool& accepted) {
      accepted = text != "no";
      if (accepted) spdData.setText(cell.row, cell.col, text);
    };
    spdData.KeyUp = [this](const KeyPress&) { ++keysUp; };
    spdData.Command = [this](GridCommand command) {
      log += "command" + std::to_string(static_cast<int>(command)) + " ";
    };
  }

  MenuItem bar{nullptr, "bar"};
  MenuItem file{&bar, "mnuFile", "&File"};
  MenuItem save{&file, "mnuFileSave", "&Save"};
  MenuItem edit{&bar, "mnuEdit", "&Edit"};
  MenuItem copy{&edit, "mnuEditCopy", "&Copy"};
  TextBox txtTitle{this, "txtTitle"};
  EditGrid spdData{this, "spdData"};
  Button cmdOK{this, "cmdOK", "OK"};
  std::string log;
  int keysUp = 0;
};

class GridEditSuite : public StageTest {
 protected:
  GridEditSuite() {
    window.show();
    window.spdData.setFocus();
    window.spdData.setActiveCell({2, 2});
  }
  void key(int code, KeyPress held = {}) {
    held.code = code;
    user.key("frmEdit", held);
  }
  void type(const std::string& text) { user.type("frmEdit", "spdData", text); }

  EditWindow window{desktop};
  EditGrid& grid = window.spdData;
};

TEST_P(GridEditSuite, TypesACaseAndMendsIt) {
  type("-1.5");
  key(keys::tab);
  type("=SUM(B2:B4)*2");
  key(keys::enter);
  EXPECT_EQ(grid.text(2, 2), "-1.5");
  EXPECT_EQ(grid.text(2, 3), "=SUM(B2:B4)*2") << "no character of it is taken for a key";
  EXPECT_EQ(grid.activeCell(), (CellPosition{3, 2}));
  key(keys::up);
  key(keys::f2);
  EXPECT_EQ(grid.editText(), "-1.5");
  type("7");
  key(keys::tab, {.shift = true});
  EXPECT_EQ(grid.text(2, 2), "-1.57");
  EXPECT_EQ(grid.activeCell(), (CellPosition{2, 1}));
  type("no");
  key(keys::enter);
  EXPECT_EQ(grid.editText(), "no");
  key(keys::escape);
  EXPECT_FALSE(grid.editMode());
  EXPECT_EQ(window.focus(), &grid);
  EXPECT_EQ(window.log, "") << "Return never pressed the default button";
  EXPECT_GT(window.keysUp, 6);
}

TEST_P(GridEditSuite, LeavingTheGridEntersWhatIsTyped) {
  type("5");
  user.click("frmEdit", "cmdOK");
  EXPECT_EQ(grid.text(2, 2), "5");
  EXPECT_EQ(window.log, "OK ");
  grid.setFocus();
  type("6");
  key(keys::f6);
  EXPECT_EQ(grid.text(2, 2), "6");
  EXPECT_EQ(window.focus(), &window.cmdOK);
  key(keys::tab);
  EXPECT_EQ(window.focus(), &window.txtTitle);
  grid.setFocus();
  type("7");
  user.key("frmEdit", {keys::tab, true, true});
  EXPECT_EQ(grid.text(2, 2), "7");
  EXPECT_EQ(window.focus(), &window.txtTitle);
}

TEST_P(GridEditSuite, ShortcutsAreTheMenusButTextKeysStayInText) {
  key('C', {.control = true});
  key('Z', {.control = true});
  key(keys::deleteKey);
  type("5");
  key('C', {.control = true});
  key('S', {.control = true});
  EXPECT_EQ(window.log, "copy command4 command0 save ");
  grid.cancelEdit();
  window.copy.setEnabled(false);
  key('C', {.control = true});
  EXPECT_EQ(window.log, "copy command4 command0 save command2 ");
  user.menu("frmEdit", "File/Save");
  EXPECT_EQ(window.log, "copy command4 command0 save command2 save ");
}

TEST_P(GridEditSuite, CellsComeBackInTheProgramsOwnForm) {
  desktop.setClipboard({.text = "1\t2\n", .cells = "=A1\t2\n"});
  EXPECT_EQ(desktop.pasted().text, "1\t2\n");
  EXPECT_EQ(desktop.pasted().cells, "=A1\t2\n");
  desktop.setClipboard({.text = "1"});
  EXPECT_EQ(desktop.pasted().cells, "");
}

INSTANTIATE_TEST_SUITE_P(Desktops, GridEditSuite, stages(), stageName);

}  // namespace
}  // namespace tolmer::test
