// What all tables do: fill their window, copy themselves, answer clicks, refuse to be closed.
#include "displaywindows/table_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "platform/headless/headless_desktop.h"
#include "platform/text_metrics.h"
#include "support/recording_host.h"
#include "tables/table_support.h"

namespace tolmer {
namespace {

using test::bareAnalysis;
using test::cementAnalysis;
using test::RecordingHost;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class TableDisplayTest : public testing::Test {
 protected:
  // A resize as the frame makes it.
  void resize(float width, float height) {
    coefficients.setPlace({0, 0, pixels(width), pixels(height)});
    anova.setPlace({0, 0, pixels(width), pixels(height)});
  }

  HeadlessDesktop desktop;
  RecordingHost host;
  AnalysisState state = cementAnalysis(true);
  TableWindow coefficients{desktop, state, host, *findDisplay("frmEstCoef")};
  TableWindow anova{desktop, state, host, *findDisplay("frmANOVA")};
};

void expectTextsFit(const Grid& grid) {
  const auto blank = static_cast<Twips>(textWidth(grid.font(), " ") * twipsPerPixel);
  for (int col = 1; col <= grid.maxCols(); ++col)
    EXPECT_GE(grid.colWidth(col), grid.widestText(col) + blank) << "column " << col;
  for (int row = 1; row <= grid.maxRows(); ++row)
    EXPECT_GE(grid.rowHeight(row), grid.tallestText(row)) << "row " << row;
}

TEST_F(TableDisplayTest, FillsAnyWindowThatIsLargeEnough) {
  for (const Size size : {Size{600, 320}, Size{952, 480}, Size{1920, 1050}, Size{777, 613}})
    for (TableWindow* table : {&coefficients, &anova}) {
      resize(size.width, size.height);
      EXPECT_EQ(table->grid().scrollBars(), ScrollBars::none);
      EXPECT_EQ(table->grid().contentSize(), (Size{pixels(size.width), pixels(size.height)}));
      EXPECT_EQ(table->grid().place(), (Rect{0, 0, pixels(size.width), pixels(size.height)}));
      expectTextsFit(table->grid());
    }
}

TEST_F(TableDisplayTest, ScrollsInAWindowThatIsTooSmall) {
  resize(2000, 60);
  EXPECT_EQ(anova.grid().scrollBars(), ScrollBars::vertical);
  EXPECT_EQ(anova.grid().contentSize().width, pixels(2000) - desktop.scrollBarThickness());
  resize(100, 60);
  EXPECT_EQ(anova.grid().scrollBars(), ScrollBars::both);
  expectTextsFit(anova.grid());
  for (int row = 1; row <= coefficients.grid().maxRows(); ++row)
    EXPECT_GE(coefficients.grid().rowHeight(row), 300) << "empty rows too";
  EXPECT_LT(anova.grid().rowHeight(5), anova.grid().rowHeight(1) / 4) << "the separator";
}

TEST_F(TableDisplayTest, AResizeWritesTheTableAnewUnlessTheProgramIsStarting) {
  state.bStartingUp = true;
  resize(600, 320);
  EXPECT_EQ(coefficients.grid().maxRows(), 0);
  state.bStartingUp = false;
  resize(601, 320);
  EXPECT_EQ(coefficients.grid().text(2, 1), "Intercept");
  state = cementAnalysis(false);
  coefficients.UpdateDisplay();
  EXPECT_EQ(coefficients.grid().text(2, 1), "Aluminate");
}

TEST_F(TableDisplayTest, CopyPutsAllCellsOnTheClipboard) {
  anova.UpdateDisplay();
  anova.CopyGraph();
  EXPECT_THAT(desktop.clipboard().text,
              StartsWith("Source\tSum of Squares\tD.F.\tMean Square\tF\tP\nRegression\t"));
  EXPECT_THAT(desktop.clipboard().text, HasSubstr("Sample size\t13\t\n"));
  coefficients.UpdateDisplay();
  coefficients.CopyGraph();
  EXPECT_THAT(desktop.clipboard().text, HasSubstr("\tVIF > 10\t"));
  EXPECT_THAT(desktop.clipboard().html, HasSubstr("<p class=\"key\">"));
}

TEST_F(TableDisplayTest, MarkedCellsSayWhatTheirColourSays) {
  coefficients.UpdateDisplay();
  const Sheet& sheet = coefficients.grid().sheet();
  EXPECT_EQ(sheet.at(3, 6).mark, "VIF above 10");
  EXPECT_TRUE(sheet.at(3, 6).isBold());
  EXPECT_FALSE(sheet.at(3, 5).isBold());
  EXPECT_EQ(sheet.at(8, 7).text, "VIF > 10");
  EXPECT_FALSE(sheet.at(8, 7).isBold()) << "the key";
}

TEST_F(TableDisplayTest, ClicksReachTheControlPanelAndTheMenu) {
  raise(coefficients.Click);
  coefficients.grid().click({2, 2});
  EXPECT_EQ(std::count(host.calls.begin(), host.calls.end(), "disabled"), 2);
  raise(coefficients.grid().MouseUp, MouseButton::left);
  EXPECT_THAT(host.calls, Not(Contains("menu")));
  // Other than a graph, a maximised table has its menu too.
  coefficients.reportState(WindowState::maximised);
  raise(coefficients.grid().MouseUp, MouseButton::right);
  EXPECT_THAT(host.calls, Contains("menu"));
  EXPECT_EQ(state.frmCurrentDisplay, &coefficients);
}

TEST_F(TableDisplayTest, HeadsAndCasesStayInPlace) {
  TableWindow list(desktop, state, host, *findDisplay("frmDataList"));
  state.tLabelColName = "Batch";
  for (const bool labelled : {false, true, false}) {
    state.bLabeledData = labelled;
    list.UpdateDisplay();
    EXPECT_EQ(list.grid().rowAxis().frozen(), 1);
    EXPECT_EQ(list.grid().colAxis().frozen(), labelled ? 2 : 1);
  }
}

// The part of the other rows' height is the table's own.
TEST_F(TableDisplayTest, RowsOfTheFrameAreLowUnlessTheyExplain) {
  for (const auto& [form, part] : {std::pair{"frmCorrMatrix", 5}, std::pair{"frmDataList", 6}}) {
    TableWindow table(desktop, state, host, *findDisplay(form));
    const auto pixelsOf = [&](int fromEnd) {
      return table.grid().rowHeight(table.grid().maxRows() - fromEnd) / twipsPerPixel;
    };
    table.reportInnerSize({pixels(60), pixels(50)});  // too small: no room is spread
    const float high = table.grid().rowHeight(2) / twipsPerPixel;
    const float low = std::round(high / static_cast<float>(part));
    const bool hasKey = part == 5;  // some cements correlate, none lies far out
    EXPECT_EQ(pixelsOf(2), low);
    EXPECT_EQ(pixelsOf(1), hasKey ? high : low);
    EXPECT_EQ(pixelsOf(0), low);
  }
}

TEST_F(TableDisplayTest, LooksFollowFromWhatTheCellsAre) {
  TableContent table(2, 4);
  table.heading(1, 1, "P", Align::right);
  table.figure(1, 2, "1.0", Align::centre, CellMark::itself);
  table.figure(1, 3, "0.001", Align::right, CellMark::pBelow01);
  table.frame(2);
  const Sheet sheet = gridSheet(table);
  const auto look = [&](int row, int col) { return sheet.at(row, col).style; };
  const Colour face = colours::buttonFace, text = colours::buttonText;
  EXPECT_EQ(look(1, 1),
            (CellStyle{.align = Align::right, .heading = true, .back = face, .fore = text}));
  EXPECT_EQ(look(1, 2), (CellStyle{.align = Align::centre, .back = face, .fore = text}));
  EXPECT_EQ(look(1, 3), (CellStyle{.align = Align::right, .back = colours::cyan}));
  EXPECT_EQ(look(1, 4), CellStyle{});
  EXPECT_EQ(look(2, 4), (CellStyle{.back = face, .fore = text}));
}

}  // namespace
}  // namespace tolmer
