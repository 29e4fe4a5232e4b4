// Cells on the clipboard. What spreadsheets make of such text was tried with LibreOffice Calc 7.4.
#include "platform/grid/grid_copy.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/tabbed_text.h"

namespace tolmer {
namespace {

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
