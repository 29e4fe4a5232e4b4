// What a user marks by mouse and keys, as the blocks that windows ask for.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/grid/grid.h"
#include "platform/headless/headless_desktop.h"
#include "platform/window.h"

namespace tolmer {

static void PrintTo(const CellBlock& block, std::ostream* out) {
  *out << block.row << "," << block.col << " to " << block.row2 << "," << block.col2;
}
static void PrintTo(const CellPosition& cell, std::ostream* out) {
  *out << cell.row << "," << cell.col;
}

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr ClickKeys shift{.shift = true};
constexpr ClickKeys control{.control = true};

class GridSelectionTest : public testing::Test {
 protected:
  GridSelectionTest() {
    grid.setSize(20, 4);
    grid.setPlace({0, 0, pixels(300), pixels(126)});
    grid.SelectionChange = [this] { ++changes; };
  }

  const std::vector<CellBlock>& blocks() const { return grid.selection().blocks(); }
  void key(int code, bool withShift = false, bool withControl = false) {
    EXPECT_TRUE(grid.pressKey({code, withShift, withControl, false}));
  }

  HeadlessDesktop desktop;
  Window window{desktop, "frmAny", WindowStyle::dialog};
  Grid grid{&window, "spdAny"};
  int changes = 0;
};

TEST_F(GridSelectionTest, DragAndShiftMarkFromTheAnchorInAnyDirection) {
  grid.press({5, 3});
  grid.dragTo({2, 4});
  EXPECT_THAT(blocks(), ElementsAre(CellBlock{2, 3, 5, 4}));
  grid.press({7, 1}, shift);
  EXPECT_THAT(blocks(), ElementsAre(CellBlock{5, 1, 7, 3}));
  EXPECT_EQ(grid.activeCell(), (CellPosition{5, 3}));
  const int before = changes;
  for (int twice = 0; twice < 2; ++twice) grid.press({1, 1});
  EXPECT_THAT(blocks(), IsEmpty());
  EXPECT_EQ(changes, before + 1);
}

TEST_F(GridSelectionTest, ControlClickAddsRowsToTheActiveOneAndTakesThemOut) {
  grid.setSelectionMode(SelectionMode::rows);
  grid.press({2, 1});
  grid.press({5, 2}, control);
  EXPECT_THAT(blocks(), ElementsAre(CellBlock{2, 1, 2, 4}, CellBlock{5, 1, 5, 4}));
  grid.press({7, 1}, shift);
  EXPECT_THAT(blocks(), ElementsAre(CellBlock{2, 1, 2, 4}, CellBlock{5, 1, 7, 4}));
  grid.press({6, 3}, control);
  EXPECT_THAT(blocks(),
              ElementsAre(CellBlock{2, 1, 2, 4}, CellBlock{5, 1, 5, 4}, CellBlock{7, 1, 7, 4}));
  // The row taken out is not the anchor's block any more: Shift begins a new one.
  grid.press({9, 1}, shift);
  EXPECT_EQ(blocks().size(), 4U);
  EXPECT_EQ(blocks().back(), (CellBlock{6, 1, 9, 4}));
}

TEST_F(GridSelectionTest, TakingACellOutOfABlockLeavesAllOthers) {
  grid.select({2, 1, 4, 3});
  grid.press({3, 2}, control);
  for (int row = 1; row <= 5; ++row)
    for (int col = 1; col <= 4; ++col) {
      const bool wasMarked = row >= 2 && row <= 4 && col <= 3;
      EXPECT_EQ(grid.selection().covers({row, col}), wasMarked && !(row == 3 && col == 2))
          << row << ", " << col;
    }
}

TEST_F(GridSelectionTest, BlocksBeyondTheSheetAreCutAndShrinkWithIt) {
  grid.select({18, 3, 99, 9});
  EXPECT_THAT(blocks(), ElementsAre(CellBlock{18, 3, 20, 4}));
  grid.setSize(19, 3);
  EXPECT_THAT(blocks(), ElementsAre(CellBlock{18, 3, 19, 3}));
  grid.setSize(5, 1);
  EXPECT_THAT(blocks(), IsEmpty());
  EXPECT_EQ(grid.activeCell(), (CellPosition{5, 1}));
}

TEST_F(GridSelectionTest, KeysMoveTheActiveCellAndStopAtTheEdges) {
  key(keys::up);
  key(keys::left);
  EXPECT_EQ(grid.activeCell(), (CellPosition{1, 1}));
  key(keys::down);
  key(keys::right);
  EXPECT_EQ(grid.activeCell(), (CellPosition{2, 2}));
  key(keys::end);
  EXPECT_EQ(grid.activeCell(), (CellPosition{2, 4}));
  key(keys::end, false, true);
  EXPECT_EQ(grid.activeCell(), (CellPosition{20, 4}));
  key(keys::home, false, true);
  EXPECT_EQ(grid.activeCell(), (CellPosition{1, 1}));
  EXPECT_FALSE(grid.pressKey({keys::tab}));
  EXPECT_FALSE(grid.pressKey({keys::down, false, false, true}));
}

TEST_F(GridSelectionTest, PageKeysGoAsFarAsAWindowfulShows) {
  // Rows of 23 pixels and their line in a grid of 126: five of them show.
  key(keys::pageDown);
  EXPECT_EQ(grid.activeCell().row, 5);
  key(keys::pageDown);
  EXPECT_EQ(grid.activeCell().row, 9);
  key(keys::pageUp);
  EXPECT_EQ(grid.activeCell().row, 5);
  key(keys::pageUp);
  EXPECT_EQ(grid.activeCell().row, 1);
  // Also where not even one row fits, a page key moves.
  grid.setHeight(pixels(10));
  key(keys::pageDown);
  EXPECT_EQ(grid.activeCell().row, 2);
}

TEST_F(GridSelectionTest, HiddenRowsAndColumnsAreSteppedOver) {
  grid.setRowHeight(2, 0);
  grid.setColWidth(4, 0);
  key(keys::down);
  EXPECT_EQ(grid.activeCell().row, 3);
  key(keys::end);
  EXPECT_EQ(grid.activeCell().col, 3);
}

TEST_F(GridSelectionTest, ShiftedKeysMarkAndControlAMarksAll) {
  grid.setActiveCell({4, 2});
  key(keys::down, true);
  key(keys::right, true);
  EXPECT_THAT(blocks(), ElementsAre(CellBlock{4, 2, 5, 3}));
  key(keys::down);
  EXPECT_THAT(blocks(), IsEmpty());
  EXPECT_EQ(grid.activeCell(), (CellPosition{5, 2}));
  key('A', false, true);
  EXPECT_THAT(blocks(), ElementsAre(CellBlock{1, 1, 20, 4}));
  grid.unmarkBlocks();
  EXPECT_THAT(blocks(), IsEmpty());
}

TEST_F(GridSelectionTest, ATableToLookAtHasNoMarks) {
  grid.setSelectionMode(SelectionMode::none);
  grid.press({3, 3});
  grid.dragTo({5, 4});
  grid.select({1, 1, 2, 2});
  EXPECT_FALSE(grid.pressKey({keys::down}));
  EXPECT_FALSE(grid.selection().covers({1, 1}));
  EXPECT_THAT(blocks(), IsEmpty());
  EXPECT_EQ(changes, 0);
}

}  // namespace
}  // namespace tolmer
