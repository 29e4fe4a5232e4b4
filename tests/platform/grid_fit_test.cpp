// Sizes of rows and columns: where cells lie, what texts need, how a table fills its window; and
// cells on the clipboard. What spreadsheets make of such text was tried with LibreOffice Calc 7.4.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/tabbed_text.h"
#include "platform/grid/grid_copy.h"
#include "platform/grid/grid_fit.h"
#include "platform/text_metrics.h"

namespace tolmer {
namespace {

// Sizes of rows and columns: where cells lie, what texts need, and how a table fills its window.
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

TEST(GridAxisTest, WhatIsBroughtIntoViewBeginsWholeAndMovesNoMoreThanItMust) {
  std::vector<Twips> sizes(11, pixels(50));
  sizes[0] = pixels(20);
  const GridAxis axis(sizes, true, 0);
  const int room = 22 + 160;
  EXPECT_EQ(axis.scrolledTo(2, 0, room), 0);
  EXPECT_EQ(axis.scrolledTo(4, 0, room), 51) << "its end needs 44, in the middle of the first";
  EXPECT_EQ(axis.scrolledTo(1, 300, room), 0);
  EXPECT_EQ(axis.scrolledTo(0, 120, room), 120);
  EXPECT_EQ(axis.scrolledTo(11, 120, room), 120);
  EXPECT_EQ(axis.scrolledTo(9, 0, 22 + 30), axis.start(9) - 22) << "larger than the room";
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
  fillRoom(grid, {pixels(219), pixels(90)}, pixels(14), 2);
  EXPECT_EQ(grid.rowHeight(2), pixels(27));
  EXPECT_EQ(grid.rowHeight(3), pixels(39));
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

// Cells on the clipboard. What spreadsheets make of such text was tried with LibreOffice Calc 7.4.
Sheet sheetOf(const std::vector<std::vector<std::string>>& rows) {
  Sheet sheet(static_cast<int>(rows.size()), static_cast<int>(rows[0].size()));
  for (int row = 1; row <= sheet.rows(); ++row)
    for (int col = 1; col <= sheet.cols(); ++col)
      sheet.at(row, col).text =
          rows[static_cast<std::size_t>(row - 1)][static_cast<std::size_t>(col - 1)];
  return sheet;
}

TEST(GridCopyTest, CellsAreDividedByTabsAndRowsEndedByLineFeeds) {
  const Sheet sheet = sheetOf({{"a", "", "c"}, {"1.5", "-2", ""}});
  EXPECT_EQ(copyText(sheet, sheet.body()), "a\t\tc\n1.5\t-2\t\n");
  EXPECT_EQ(copyText(sheet, {2, 1, 2, 2}), "1.5\t-2\n");
}

TEST(GridCopyTest, OnlyCellsThatWouldFallApartAreQuoted) {
  const Sheet sheet =
      sheetOf({{"tab\there", "two\nlines", "\"quoted\""}, {"5\" pipe", "a, b", "'"}});
  EXPECT_EQ(copyText(sheet, sheet.body()),
            "\"tab\there\"\t\"two\nlines\"\t\"\"\"quoted\"\"\"\n5\" pipe\ta, b\t'\n");
}

TEST(GridCopyTest, HtmlCarriesHeadingsAlignmentAndMarks) {
  Sheet sheet = sheetOf({{"P <", "A&B"}, {"0.003", ""}});
  sheet.at(1, 1).style = {.heading = true, .back = colours::buttonFace};
  sheet.at(2, 1).style = {.align = Align::right, .back = colours::cyan};
  sheet.at(2, 2).style.back = colours::buttonFace;
  EXPECT_EQ(copyHtml(sheet, sheet.body()),
            "<table border=\"1\" cellspacing=\"0\" cellpadding=\"3\">\n"
            "<tr><th align=\"left\">P &lt;</th><td align=\"left\">A&amp;B</td></tr>\n"
            "<tr><td align=\"right\" sdval=\"0.003\" sdnum=\"1033;0;0.000\" "
            "bgcolor=\"#00ffff\">0.003</td><td align=\"left\"></td></tr>\n"
            "</table>\n");
  sheet.at(2, 1).text = "-1.5e-20";
  EXPECT_THAT(copyHtml(sheet, {2, 1, 2, 1}),
              testing::HasSubstr("sdval=\"-1.5e-20\" sdnum=\"1033;0;0.0E+00\""));
}

TEST(GridCopyTest, WhatASpreadsheetWouldCarryOutLeavesAsTextAndComesBack) {
  const Sheet sheet =
      sheetOf({{"=1+1", "@SUM(A1)", "-A1", "+2-3"}, {"-1,890.4", "+2.5E-05", "---", "-"}});
  EXPECT_EQ(copyText(sheet, sheet.body()),
            "'=1+1\t'@SUM(A1)\t'-A1\t'+2-3\n-1,890.4\t+2.5E-05\t---\t-\n");
  EXPECT_THAT(copyHtml(sheet, {1, 1, 1, 1}),
              testing::HasSubstr("'\\@'\" sdnum=\"1033;0;@\">=1+1<"));
  EXPECT_EQ(withoutTextMark("'=1+1"), "=1+1");
  EXPECT_EQ(withoutTextMark("'tis"), "'tis");
}

}  // namespace
}  // namespace tolmer
