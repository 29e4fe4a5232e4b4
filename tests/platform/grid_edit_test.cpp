// Typing into a grid as in a spreadsheet, without a screen.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "platform/buttons.h"
#include "platform/grid/edit_grid.h"
#include "platform/grid/grid_keys.h"
#include "platform/headless/headless_desktop.h"
#include "platform/window.h"

namespace tolmer {

static void PrintTo(const CellPosition& cell, std::ostream* out) {
  *out << cell.row << "," << cell.col;
}

namespace {

using testing::ElementsAre;

// Keeps whole numbers, shows them with a ".0" behind, and refuses anything else.
class GridEditTest : public testing::Test {
 protected:
  GridEditTest() {
    grid.setSize(20, 5);
    grid.setPlace({0, 0, pixels(300), pixels(126)});
    grid.setStyle({1, 1, 20, 5}, {.type = CellType::text});
    grid.setStyle({1, 5, 20, 5}, {.type = CellType::fixed});
    grid.AskContent = [this](CellPosition cell, std::string& content) {
      const auto kept = contents.find({cell.row, cell.col});
      content = kept == contents.end() ? "" : kept->second;
    };
    grid.EditDone = [this](CellPosition cell, const std::string& text, bool& accepted) {
      accepted = text.find_first_not_of("0123456789") == std::string::npos;
      log.push_back(text + (accepted ? " taken" : " refused"));
      if (accepted) put(cell, text);
    };
    grid.LeaveCell = [this](CellPosition from, CellPosition to) {
      moves.push_back(testing::PrintToString(from) + " > " + testing::PrintToString(to));
    };
    window.show();
    grid.setFocus();
  }

  void put(CellPosition cell, const std::string& text) {
    contents[{cell.row, cell.col}] = text;
    grid.setText(cell.row, cell.col, text.empty() ? "" : text + ".0");
  }
  bool key(int code, KeyPress held = {}) {
    held.code = code;
    return grid.pressKey(held);
  }
  void at(int row, int col) { grid.setActiveCell({row, col}); }

  HeadlessDesktop desktop;
  Window window{desktop, "frmAny", WindowStyle::dialog};
  EditGrid grid{&window, "spdData"};
  Button button{&window, "cmdOK", "OK"};
  std::map<std::pair<int, int>, std::string> contents;
  std::vector<std::string> log;
  std::vector<std::string> moves;
};

constexpr KeyPress shift{.shift = true};
constexpr KeyPress control{.control = true};

TEST_F(GridEditTest, TypingReplacesOrExtendsAndF2OpensTheContentItself) {
  put({1, 1}, "12");
  grid.typeText("7");
  EXPECT_EQ(grid.editText(), "7");
  int givenUp = 0;
  grid.EditGivenUp = [&] { ++givenUp; };
  EXPECT_TRUE(key(keys::escape));
  EXPECT_EQ(givenUp, 1);
  EXPECT_FALSE(grid.editMode());
  EXPECT_EQ(grid.text(1, 1), "12.0");
  grid.setEditModeReplace(false);
  grid.typeText("7");
  EXPECT_EQ(grid.editText(), "127") << "behind the content, not behind what is shown";
  key(keys::escape);
  key(keys::f2);
  EXPECT_EQ(grid.editText(), "12");
  grid.typeText("3");
  EXPECT_TRUE(grid.commitEdit());
  EXPECT_EQ(grid.text(1, 1), "123.0");
  key(keys::backspace);
  EXPECT_EQ(grid.editText(), "");
  key(keys::enter);
  EXPECT_EQ(grid.text(1, 1), "");
  EXPECT_THAT(log, ElementsAre("123 taken", " taken"));
  EXPECT_FALSE(key(keys::escape)) << "without an edit Escape is the window's";
}

TEST_F(GridEditTest, KeysThatMoveEndTypingButStayInAnOpenedCell) {
  at(3, 2);
  for (const int code : {keys::right, keys::up, keys::left, keys::down}) {
    grid.typeText("1");
    EXPECT_TRUE(key(code));
    EXPECT_FALSE(grid.editMode());
  }
  EXPECT_THAT(moves, ElementsAre("1,1 > 3,2", "3,2 > 3,3", "3,3 > 2,3", "2,3 > 2,2", "2,2 > 3,2"));
  key(keys::f2);
  EXPECT_FALSE(key(keys::left)) << "the caret's";
  EXPECT_FALSE(key(keys::home));
  EXPECT_TRUE(key(keys::down)) << "leads nowhere in one line";
  EXPECT_TRUE(grid.editMode());
  EXPECT_FALSE(key('C', control)) << "copies letters, not cells";
  EXPECT_FALSE(key(keys::deleteKey));
  key(keys::f2);
  EXPECT_TRUE(key(keys::left));
  EXPECT_EQ(grid.activeCell(), (CellPosition{3, 1}));
}

TEST_F(GridEditTest, ReturnAfterTabsGoesToTheNextCase) {
  at(2, 2);
  for (const char* value : {"1", "2"}) {
    grid.typeText(value);
    key(keys::tab);
  }
  grid.typeText("3");
  key(keys::enter);
  EXPECT_EQ(grid.activeCell(), (CellPosition{3, 2}));
  key(keys::enter);
  key(keys::enter, shift);
  key(keys::tab, shift);
  EXPECT_EQ(grid.activeCell(), (CellPosition{3, 1}));
  key(keys::tab);
  at(7, 4);
  key(keys::enter);
  EXPECT_EQ(grid.activeCell(), (CellPosition{8, 4})) << "any other move forgets where Tab began";
  at(20, 5);
  key(keys::tab);
  key(keys::enter);
  EXPECT_EQ(grid.activeCell(), (CellPosition{20, 5}));
}

TEST_F(GridEditTest, RefusedTextStaysOpenWhereverTheFocusGoes) {
  put({1, 1}, "12");
  grid.typeText("abc");
  for (const int code : {keys::enter, keys::tab, keys::down}) key(code);
  grid.press({4, 4});
  EXPECT_TRUE(grid.editMode());
  EXPECT_EQ(grid.editText(), "abc");
  EXPECT_EQ(grid.activeCell(), (CellPosition{1, 1}));
  button.setFocus();
  at(9, 3);  // by the program
  EXPECT_EQ(grid.editText(), "abc");
  EXPECT_EQ(grid.editCell(), (CellPosition{1, 1}));
  at(1, 1);
  EXPECT_EQ(grid.text(1, 1), "12.0");
  EXPECT_EQ(log.size(), 7U) << "told each time, so that the window can say why";

  grid.setFocus();
  grid.setEditText("5");
  button.setFocus();
  EXPECT_EQ(grid.text(1, 1), "5.0");
  EXPECT_FALSE(grid.editMode());
}

// A box that says why takes the focus in the middle of the question.
TEST_F(GridEditTest, ABoxDuringARefusalDoesNotAskAgain) {
  int asked = 0;
  grid.EditDone = [&](CellPosition, const std::string&, bool&) {
    ++asked;
    button.setFocus();
    grid.commitEdit();
  };
  grid.typeText("abc");
  key(keys::enter);
  EXPECT_EQ(asked, 1);
  EXPECT_TRUE(grid.editMode());
  key(keys::escape);
  EXPECT_FALSE(grid.editMode());
}

TEST_F(GridEditTest, FixedCellsAndLineEndsAreKeptOut) {
  at(2, 5);
  grid.typeText("1");
  key(keys::f2);
  grid.doubleClick({2, 5});
  EXPECT_FALSE(grid.editMode());
  EXPECT_FALSE(grid.enter({2, 5}, "1"));
  EXPECT_FALSE(grid.enter({2, 0}, "1"));
  EXPECT_TRUE(grid.enter({2, 4}, "1"));
  at(2, 4);
  grid.doubleClick({2, 4});
  EXPECT_TRUE(grid.editMode());
  grid.setEditText("1\r\n2\t3");
  EXPECT_EQ(grid.editText(), "1 2 3");
}

TEST_F(GridEditTest, ArrowsWithControlStopAtTheEdgesOfData) {
  for (const int row : {2, 3, 4, 8, 12, 13}) put({row, 2}, "1");
  at(2, 2);
  std::vector<int> rows;
  for (int i = 0; i < 5; ++i) {
    key(keys::down, control);
    rows.push_back(grid.activeCell().row);
  }
  EXPECT_THAT(rows, ElementsAre(4, 8, 12, 13, 20));
  rows.clear();
  for (int i = 0; i < 6; ++i) {
    key(keys::up, control);
    rows.push_back(grid.activeCell().row);
  }
  EXPECT_THAT(rows, ElementsAre(13, 12, 8, 4, 2, 1));
  key(keys::right, control);
  EXPECT_EQ(grid.activeCell(), (CellPosition{1, 5}));
  put({6, 4}, "1");
  EXPECT_EQ(lastUsedCell(grid.sheet()), (CellPosition{13, 4}));
  key(keys::end, control);
  EXPECT_EQ(grid.activeCell(), (CellPosition{13, 4}));
  key(keys::up, {.shift = true, .control = true});
  EXPECT_EQ(grid.selection().blocks().at(0), (CellBlock{6, 4, 13, 4}));
}

TEST_F(GridEditTest, WholeRowsAndColumnsByHeadingsAndKeys) {
  const auto& blocks = grid.selection().blocks();
  grid.press({8, 0});
  grid.dragTo({5, 3});
  EXPECT_THAT(blocks, ElementsAre(CellBlock{5, 1, 8, 5}));
  grid.dragTo({10, 0});
  EXPECT_THAT(blocks, ElementsAre(CellBlock{8, 1, 10, 5})) << "from where the drag began";
  grid.press({0, 4});
  grid.press({0, 2}, {.shift = true});
  EXPECT_THAT(blocks, ElementsAre(CellBlock{1, 2, 20, 4}));
  at(6, 3);
  key(keys::space, shift);
  EXPECT_THAT(blocks, ElementsAre(CellBlock{6, 1, 6, 5}));
  at(6, 3);
  key(keys::space, control);
  EXPECT_THAT(blocks, ElementsAre(CellBlock{1, 3, 20, 3}));
}

TEST_F(GridEditTest, TellsWhichCellsChanged) {
  struct Watcher : Peer {
    explicit Watcher(EditGrid& grid) : grid(grid) {}
    void changed(Change what) override {
      if (has(what, Change::content)) seen.push_back(grid.changedCells());
    }
    EditGrid& grid;
    std::vector<CellBlock> seen;
  };
  auto watcher = std::make_unique<Watcher>(grid);
  const auto& seen = watcher->seen;
  grid.setPeer(std::move(watcher));
  grid.setText(3, 2, "a");
  grid.setText(9, 1, "b");
  {
    RedrawLock lock(grid);
    grid.setText(4, 4, "c");
    grid.setNumber(2, 3, 1);
  }
  EXPECT_THAT(seen,
              ElementsAre(CellBlock{3, 2, 3, 2}, CellBlock{9, 1, 9, 1}, CellBlock{2, 3, 4, 4}));
}

TEST_F(GridEditTest, MayGoInItsOwnEvents) {
  for (int event = 0; event < 3; ++event) {
    auto own = std::make_unique<EditGrid>(&window, "spdOwn");
    own->setSize(3, 3);
    own->setStyle({1, 1, 3, 3}, {.type = CellType::text});
    const auto unload = [&own] { own.reset(); };
    if (event == 0) own->EditDone = [=](CellPosition, const std::string&, bool&) { unload(); };
    if (event == 1) own->LeaveCell = [=](CellPosition, CellPosition) { unload(); };
    if (event == 2) own->Command = [=](GridCommand) { unload(); };
    if (event == 0) own->typeText("5");
    own->pressKey({.code = event == 2 ? keys::deleteKey : keys::enter});
    EXPECT_EQ(own, nullptr) << event;
  }
}

}  // namespace
}  // namespace tolmer
