// One case everywhere: selected in one display it is lit in all, and its window says what it does
// to the fit.
#include "shell/case_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "displaywindows/table_window.h"
#include "platform/graph/graph.h"
#include "shell/display_checks.h"
#include "shell/shipped_program.h"
#include "support/graph_pictures.h"
#include "support/layout_check.h"

namespace tolmer::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class SelectedCases : public ShippedProgram {
 protected:
  SelectedCases() { startWithDefaultExample(); }
  ShellParts& parts() { return module.parts(); }
  DisplayWindow& shown(int iCategory, int iIndex) {
    return parts().manager.bringUp(*findDisplay(DisplayId{iCategory, iIndex}));
  }
  Grid& residuals() { return dynamic_cast<TableWindow&>(shown(tableDisplays, 3)).grid(); }
  Grid& dataList() { return dynamic_cast<TableWindow&>(shown(tableDisplays, 4)).grid(); }
  Graph& plot() { return *shown(scatterDisplays, 1).GraphPointer; }
  const std::vector<int>& cases() { return parts().cases.cases(); }
  frmCase& window() { return parts().caseWindow; }
  // The value of the row of that name.
  static std::string cell(const Grid& grid, const std::string& name, int col) {
    for (int row = 1; row <= grid.maxRows(); ++row)
      if (grid.text(row, 1) == name) return grid.text(row, col);
    return "no row " + name;
  }
};

TEST_F(SelectedCases, AreLitInAllDisplaysWhereverTheyWereTaken) {
  Graph& points = plot();
  const auto mark = std::ranges::find_if(
      points.marks(), [](const CaseMark& one) { return one.cases == std::vector{21}; });
  EXPECT_THAT(points.wordsOn(static_cast<std::size_t>(mark - points.marks().begin())),
              HasSubstr("Case 21: fitted StackLoss 22.24, residual -7.238"));
  points.press({mark->place.left + 3, mark->place.bottom + 3});
  points.release();
  EXPECT_THAT(cases(), ElementsAre(21));
  residuals().setFocus();
  EXPECT_THAT(residuals().litRows(), ElementsAre(22));
  EXPECT_EQ(residuals().tipOn({22, 3}), "Case 21: StackLoss 15, fitted 22.24, residual -7.238");
  user.key("mdiReg", {keys::up});
  EXPECT_THAT(cases(), ElementsAre(20));
  residuals().press({4, 2}, {.control = true});
  residuals().press({6, 2}, {.shift = true});
  EXPECT_THAT(cases(), ElementsAre(3, 4, 5, 20));
  expectSelectedCasesLit(parts());
  Graph& bars = *shown(graphDisplays, 1).GraphPointer;
  EXPECT_THAT(all<BoxPrimitive>(bars.picture()).size(),
              testing::Gt(all<BoxPrimitive>(bars.plot().picture()).size()));
  user.menu("mdiReg", "Edit/Copy");
  const std::string plain = desktop.clipboard().svg;
  parts().cases.isShownInCopies = true;
  user.menu("mdiReg", "Edit/Copy");
  EXPECT_NE(desktop.clipboard().svg, plain);
  user.key("mdiReg", {keys::escape});
  EXPECT_THAT(cases(), IsEmpty());
  user.menu("mdiReg", "Edit/Copy");
  EXPECT_EQ(desktop.clipboard().svg, plain);
}

TEST_F(SelectedCases, AreKeptWithTheDataAndLeftWithThem) {
  parts().cases.select({4, 21});
  parts().state.iNumPredictors = 2;
  RedimAnalysisArrays(parts().state);
  parts().analysis.RunAnalysis();
  EXPECT_THAT(cases(), ElementsAre(4, 21)) << "another model of the same cases";
  parts().state.sData(3, 1) += 1;
  parts().analysis.RunAnalysis();
  EXPECT_THAT(cases(), IsEmpty());
}

TEST_F(SelectedCases, TellWhatTheyDoToTheFit) {
  user.menu("mdiReg", "Explore/Case...");
  EXPECT_THAT(window().lblHow.caption(), HasSubstr("No case is selected."));
  EXPECT_EQ(layoutFaults(window()), "");
  user.click("frmCase", "cmdPrevious");
  EXPECT_EQ(window().lblCases.caption(), "Case 21");
  EXPECT_EQ(layoutFaults(window()), "");
  EXPECT_EQ(cell(window().spdValues, "Cook's distance", 2), "0.6920");
  EXPECT_EQ(cell(window().spdValues, "Cook's distance", 3), "the largest of 21");
  EXPECT_EQ(cell(window().spdValues, "Leverage", 3), "the fourth largest of 21");
  EXPECT_THAT(
      window().lblSentences.caption(),
      testing::StartsWith("Without case 21 the standard error falls from 3.243 to 2.569 and "
                          "R-squared rises from 0.9136 to 0.9488."));
  EXPECT_EQ(cell(window().spdWithout, "AirFlow", 3), "0.8891");
  EXPECT_EQ(window().spdWithout.text(1, 3), "Without it");
  parts().cases.toggle(std::vector{4});
  EXPECT_EQ(window().lblCases.caption(), "Cases 4 and 21");
  EXPECT_EQ(window().spdValues.maxRows(), 3) << "a row for each";
  EXPECT_THAT(window().lblSentences.caption(), HasSubstr("Without cases 4 and 21 the"));
  user.click("frmCase", "optAll");
  EXPECT_THAT(window().lblSpread.caption(), HasSubstr("There is no sign"));
  EXPECT_THAT(window().lblLeverages.caption(),
              HasSubstr("0.412 (case 17), 0.318 (case 2) and 0.302 (case 1)"));
  EXPECT_EQ(layoutFaults(window()), "");
  user.click("frmCase", "lblFarthest");
  EXPECT_THAT(cases(), ElementsAre(17));
  user.click("frmCase", "cmdNone");
  EXPECT_THAT(dataList().litRows(), IsEmpty());
}

TEST_F(SelectedCases, AreWhereANoteOnThemLeads) {
  user.menu("mdiReg", "Explore/Notes...");
  user.click("frmNotes", "lblShow(2)(1)");
  EXPECT_THAT(cases(), ElementsAre(21));
  EXPECT_THAT(dataList().litRows(), ElementsAre(22));
}

}  // namespace
}  // namespace tolmer::test
