// New cases beside the work: typed, pasted and taken from the data, and what becomes of them when
// another fit stands.
#include "shell/predict_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/shipped_program.h"
#include "support/layout_check.h"

namespace tolmer::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class NewCasesOnTheScreen : public ShippedProgram {
 protected:
  NewCasesOnTheScreen() {
    startWithDefaultExample();
    user.menu("mdiReg", "Explore/Predict...");
  }
  ShellParts& parts() { return module.parts(); }
  frmPredict& window() { return parts().predictWindow; }
  // Rows and columns of the sheet: row 0 the headings, column 0 the names.
  std::string shown(int row, int col) { return window().spdCases.text(row + 1, col + 1); }
  void type(int row, int col, const std::string& text) {
    EXPECT_TRUE(window().spdCases.enter({row + 1, col + 1}, text)) << text;
  }
  void paste(int row, int col, const std::string& text) {
    desktop.setClipboard({.text = text});
    window().spdCases.setActiveCell({row + 1, col + 1});
    window().spdCases.setFocus();
    user.key("frmPredict", {.code = 'V', .control = true});
  }
  const std::string& words() { return window().txtWords.text(); }
  void fitAgain() {
    parts().analysis.RunAnalysis();
    desktop.advance(1000);
  }
};

TEST_F(NewCasesOnTheScreen, ArePredictedAsTheyAreEnteredAndToldWhereTheyLieOutside) {
  EXPECT_EQ(layoutFaults(window()), "");
  EXPECT_EQ(shown(1, 0), "means");
  EXPECT_EQ(shown(1, 4), "17.524");
  EXPECT_THAT(words(), StartsWith("Case 1 (means): fitted value 17.524. 95 per cent limits: "));
  EXPECT_THAT(words(), testing::Not(HasSubstr("Outside")));
  type(1, 1, "60");
  EXPECT_EQ(shown(1, 0), "") << "they are the means no more";
  type(3, 1, "99");
  EXPECT_THAT(words(), HasSubstr("Case 3: WaterTemp and AcidConc have no value."));
  EXPECT_EQ(shown(3, 4), "");
  type(3, 2, "20");
  type(3, 3, "1e39");
  EXPECT_THAT(words(), HasSubstr("Case 3: AcidConc is too large"));
  type(3, 3, "=80 + 5");
  EXPECT_THAT(words(), HasSubstr("Case 3: Outside the data: AirFlow (99; in the data 50 to 80). It "
                                 "lies farther out than any case of the data"));
  EXPECT_NE(window().spdCases.sheet().at(4, 2).style.back, colours::white);

  user.type("frmPredict", "nbrCase", "21");
  user.click("frmPredict", "cmdAdd");
  EXPECT_EQ(shown(4, 0) + " " + shown(4, 1), "case 21 70");
  EXPECT_EQ(shown(4, 4), "22.238");
  user.click("frmPredict", "cmdCopy");
  EXPECT_THAT(desktop.clipboard().text, HasSubstr("4\tcase 21\t70\t20\t91\t22.238\t"));
  EXPECT_THAT(desktop.clipboard().html, HasSubstr("Outside the data: AirFlow"));
  window().spdCases.setActiveCell({9, 2});
  EXPECT_THAT(words(), StartsWith("Case 4 (case 21): fitted value 22.238")) << "below all cases";
}

TEST_F(NewCasesOnTheScreen, LoseNothingThatWasTyped) {
  window().spdCases.setActiveCell({3, 2});
  window().spdCases.typeText("sixty");
  user.click("frmPredict", "cmdCopy");
  EXPECT_EQ(window().lblStatus.caption(), "\"sixty\" is not a number.");
  EXPECT_EQ(window().spdCases.editText(), "sixty");
  user.key("frmPredict", {keys::escape});
  EXPECT_TRUE(window().visible()) << "Escape gave up the entry";
  paste(2, 1, "60\t20\t85\n70\t25\t90\n");
  EXPECT_EQ(shown(3, 3), "90");
  paste(2, 2, "60\t20\t85\n70\t25\t90\n");
  EXPECT_THAT(window().lblStatus.caption(), StartsWith("Nothing was pasted: 3 columns from here"));
  paste(4, 1, "AcidConc\tTown\tAirFlow\tWaterTemp\n88\t7\t58\t19\n");
  EXPECT_EQ(shown(4, 1) + " " + shown(4, 2) + " " + shown(4, 3), "58 19 88");
  EXPECT_EQ(shown(0, 1), "AirFlow");
  paste(5, 1, "Rain\tSun\n1\t2\n");
  EXPECT_THAT(window().lblStatus.caption(), HasSubstr("no column is called AirFlow, WaterTemp"));
  user.key("frmPredict", {.code = 'Z', .control = true});
  EXPECT_EQ(shown(4, 1), "");
}

TEST_F(NewCasesOnTheScreen, StayWithTheirPredictors) {
  type(2, 1, "60");
  AnalysisState& changed = parts().state;
  changed.bUseIntercept = false;
  parts().analysis.RunAnalysis();
  EXPECT_EQ(shown(1, 4), "") << "of the fit before";
  desktop.advance(1000);
  EXPECT_EQ(shown(2, 1), "60");
  EXPECT_NE(shown(1, 4), "");
  for (int i = 1; i <= changed.iNumCases; ++i) changed.sData(i, 1) = changed.sData(i, 2);
  desktop.onMessageBox = [](const MessageBox&) { return Answer::ok; };
  fitAgain();
  EXPECT_THAT(window().lblModel.caption(), StartsWith("There is no valid fit of StackLoss on "));
  EXPECT_EQ(shown(1, 4) + words(), "");
  EXPECT_EQ(shown(2, 1), "60");
  changed.iNumPredictors = 1;
  fitAgain();
  EXPECT_EQ(shown(0, 1) + " " + shown(2, 1), "AirFlow ");
  EXPECT_EQ(layoutFaults(window()), "");
}

}  // namespace
}  // namespace tolmer::test
