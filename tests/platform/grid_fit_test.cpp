// Sizes of rows and columns: where cells lie, what texts need, and how a table fills its window.
#include <gtest/gtest.h>

#include "platform/grid/grid_fit.h"
#include "platform/text_metrics.h"

namespace tolmer {
namespace {

class NotedPeer : public Peer {
 public:
  explicit NotedPeer(std::vector<Change>& changes) : changes_(changes) {}
  void changed(Change what) override { changes_.push_back(what); }

 private:
  std::vector<Change>& changes_;
};

void expectFilled(const Grid& grid, Size room) { EXPECT_EQ(grid.contentSize(), room); }

TEST(GridAxisTest, PixelsAndCellsAgree) {
  const GridAxis axis({pixels(40), pixels(10), 0, pixels(20), pixels(5)}, false, 1);
  EXPECT_EQ(axis.total(), 1 + 11 + 21 + 6);
  EXPECT_EQ(axis.frozenEnd(), 12);
  for (int index : {1, 3, 4}) {
    EXPECT_EQ(axis.at(axis.start(index)), index);
    EXPECT_EQ(axis.at(axis.start(index) + axis.size(index)), index) << "the line behind it";
  }
  EXPECT_EQ(axis.size(2), 0);
  EXPECT_EQ(axis.at(-7), 1);
  EXPECT_EQ(axis.at(999), 4);
}

TEST(GridAxisTest, AShownHeadingComesFirstAndStays) {
  const GridAxis axis({pixels(40), pixels(10), pixels(10)}, true, 0);
  EXPECT_EQ(axis.at(0), 0);
  EXPECT_EQ(axis.frozenEnd(), 42);
  EXPECT_EQ(axis.start(1), 42);
  EXPECT_EQ(GridAxis({pixels(40)}, false, 3).frozen(), 0);
}

TEST(GridFitTest, ScrollBarsBringEachOtherIn) {
  const Size room{1000, 800};
  EXPECT_EQ(neededScrollBars({1000, 800}, room, 200), ScrollBars::none);
  EXPECT_EQ(neededScrollBars({1001, 600}, room, 200), ScrollBars::horizontal);
  EXPECT_EQ(neededScrollBars({1001, 601}, room, 200), ScrollBars::both);
  EXPECT_EQ(neededScrollBars({800, 801}, room, 200), ScrollBars::vertical);
  EXPECT_EQ(neededScrollBars({801, 801}, room, 200), ScrollBars::both);
  EXPECT_EQ(neededScrollBars({1001, 801}, room, 200), ScrollBars::both);
}

TEST(GridFitTest, SpareRoomGoesToAllButTheFirst) {
  Grid grid(nullptr, "spdAny");
  grid.setSize(3, 4);
  for (int col = 1; col <= 4; ++col) grid.setColWidth(col, pixels(50));
  for (int row = 1; row <= 3; ++row) grid.setRowHeight(row, pixels(20));
  // 205 by 64 pixels with the lines, so 14 and 15 pixels to spare.
  fillRoom(grid, {pixels(219), pixels(79)}, pixels(14));
  EXPECT_EQ(grid.colWidth(1), pixels(50));
  EXPECT_EQ(grid.colWidth(2), pixels(54));
  EXPECT_EQ(grid.colWidth(3), pixels(54));
  EXPECT_EQ(grid.colWidth(4), pixels(56));
  EXPECT_EQ(grid.rowHeight(1), pixels(20));
  EXPECT_EQ(grid.rowHeight(2), pixels(27));
  EXPECT_EQ(grid.rowHeight(3), pixels(28));
  EXPECT_EQ(grid.scrollBars(), ScrollBars::none);
  expectFilled(grid, {pixels(219), pixels(79)});
}

TEST(GridFitTest, ABarTakesItsRoomBeforeTheRestIsSpread) {
  Grid grid(nullptr, "spdAny");
  grid.setSize(10, 2);
  fillRoom(grid, {pixels(300), pixels(100)}, pixels(14));
  EXPECT_EQ(grid.scrollBars(), ScrollBars::vertical);
  EXPECT_EQ(grid.contentSize().width, pixels(286));
  EXPECT_EQ(grid.rowHeight(10), grid.rowHeight(1));
}

TEST(GridFitTest, AFigureIsNeverCutShort) {
  Cell cell{.style = {.align = Align::right}, .text = "-12.5E3"};
  EXPECT_EQ(shownForFigure(cell, 29, 10), "##");
  EXPECT_EQ(shownForFigure(cell, 4, 10), "#");
  cell.text = "12 cases";
  EXPECT_EQ(shownForFigure(cell, 29, 10), "");
  cell = {.style = {.align = Align::right, .heading = true}, .text = "1999"};
  EXPECT_EQ(shownForFigure(cell, 29, 10), "");
}

TEST(GridFitTest, TextsAreMeasuredInTheirOwnFontWithAMargin) {
  Grid grid(nullptr, "spdAny");
  grid.setSize(2, 2);
  EXPECT_EQ(grid.widestText(1), 0);
  EXPECT_EQ(grid.tallestText(1), 0);
  grid.setText(1, 1, "Durbin Watson");
  grid.setText(2, 1, "R");
  const Twips plain = grid.widestText(1);
  EXPECT_GE(plain,
            pixels(static_cast<float>(textWidth(Font{}, "Durbin Watson"))) + 2 * Grid::sideMargin);
  grid.setStyle({1, 1, 1, 1}, {.heading = true});
  EXPECT_GT(grid.widestText(1), plain);
  EXPECT_GE(grid.tallestText(1), pixels(static_cast<float>(lineHeight(Font{}))));
}

TEST(GridTest, TheLockGathersChangesAndLayoutIsReadyInside) {
  std::vector<Change> changes;
  Grid grid(nullptr, "spdAny");
  grid.setPeer(std::make_unique<NotedPeer>(changes));
  {
    RedrawLock outer(grid);
    RedrawLock inner(grid);
    grid.setSize(2, 3);
    grid.setText(2, 3, "x");
    EXPECT_GT(grid.contentSize().width, 0);
    EXPECT_TRUE(changes.empty());
  }
  ASSERT_EQ(changes.size(), 1U);
  EXPECT_TRUE(has(changes[0], Change::items) && has(changes[0], Change::content));
}

TEST(GridTest, CellsKeepTheirContentWhenTheSheetGrowsOrShrinks) {
  Grid grid(nullptr, "spdAny");
  grid.setSize(3, 3);
  grid.setText(2, 2, "stays");
  grid.setText(3, 3, "goes");
  grid.setSize(2, 5);
  EXPECT_EQ(grid.text(2, 2), "stays");
  grid.setSize(3, 3);
  EXPECT_EQ(grid.text(2, 2), "stays");
  EXPECT_EQ(grid.text(3, 3), "");
}

TEST(GridTest, HeadingsBesideTheCellsLookLikeHeadings) {
  Grid grid(nullptr, "spdAny");
  grid.setSize(2, 3);
  grid.setSize(4, 1);
  for (const CellPosition place : {CellPosition{0, 0}, {0, 1}, {1, 0}, {4, 0}}) {
    const CellStyle& style = grid.sheet().at(place.row, place.col).style;
    EXPECT_TRUE(style.heading && style.back == colours::buttonFace) << place.row << place.col;
  }
  EXPECT_FALSE(grid.sheet().at(1, 1).style.heading);
}

TEST(GridTest, ANumberIsKeptBehindItsShownDigits) {
  Grid grid(nullptr, "spdAny");
  grid.setSize(1, 1);
  grid.setStyle({1, 1, 1, 1}, {.type = CellType::number, .decimals = 2});
  grid.setNumber(1, 1, -1.23456789);
  EXPECT_EQ(grid.text(1, 1), "-1.23");
  grid.setStyle({1, 1, 1, 1}, {.type = CellType::number, .decimals = 4});
  EXPECT_EQ(grid.text(1, 1), "-1.2346");
  EXPECT_EQ(grid.sheet().at(1, 1).number, -1.23456789);
  grid.setNumber(1, 1, 1e300);
  EXPECT_EQ(grid.text(1, 1).size(), 301U + 5);
  grid.clear({0, 0, 9, 9});
  EXPECT_EQ(grid.sheet().at(1, 1), Cell{});
}

}  // namespace
}  // namespace tolmer
