// The notes on the screen: the line at the foot, the marks on cells, the window beside the work.
#include "shell/notes_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "displaywindows/table_window.h"
#include "shell/shipped_program.h"
#include "support/layout_check.h"

namespace tolmer::test {
namespace {

using testing::HasSubstr;

class NotesOnTheScreen : public ShippedProgram {
 protected:
  ShellParts& parts() { return module.parts(); }
  TableWindow& coefficients() {
    return dynamic_cast<TableWindow&>(*parts().displays.display(tableDisplays, 1));
  }
  const std::string& captionOf(const char* label) {
    return user.get<Label>("frmNotes", label).caption();
  }
};

TEST_F(NotesOnTheScreen, AreMadeAfterTheStartAndLeadToTheirCellsAndHelp) {
  script.window("frmOpeningBook");
  script.window("frmNotebook", [&] { user.click("frmNotebook", "cmdOK"); });
  script.window("frmModelDesign", [&] { user.click("frmModelDesign", "cmdOK"); });
  script.window("frmHint", [&] {
    desktop.advance(5000);
    EXPECT_EQ(parts().frame.lblNotes.caption(), "Notes") << "made during the start";
    user.click("frmHint", "cmdOK");
  });
  module.Main();
  desktop.advance(1000);
  EXPECT_EQ(parts().frame.lblNotes.caption(), "3 notes");
  EXPECT_EQ(parts().frame.lblStatus.caption(),
            "stakloss   ·   21 of 21 cases   ·   StackLoss on AirFlow, WaterTemp and AcidConc");
  const CellPosition marked{3, 5};
  EXPECT_THAT(std::string(coefficients().grid().remarkOn(marked)), HasSubstr("below 0.0005"));
  EXPECT_EQ(coefficients().grid().remarkOn({4, 5}), "");

  user.click("mdiReg", "lblStatus");
  EXPECT_EQ(layoutFaults(parts().notesWindow), "");
  user.click("frmNotes", "lblHelp(3)");
  EXPECT_EQ(desktop.helpRequests().back().entry, "All numbers confirmed");
  parts().manager.ShowNewWindow(graphDisplays, 2);
  coefficients().activate();
  user.menu("mdiReg", "Displays/Tables/Residual List");
  user.click("frmNotes", "lblShow(1)(1)");
  EXPECT_EQ(parts().frame.activeChild(), &coefficients());
  EXPECT_EQ(coefficients().grid().activeCell(), marked);
  user.menu("mdiReg", "Edit/Copy");
  EXPECT_THAT(desktop.clipboard().html, HasSubstr("the smallest here is 3.0E-09"));
  EXPECT_THAT(desktop.clipboard().text, testing::Not(HasSubstr("smallest")));
}

TEST_F(NotesOnTheScreen, FollowTheAnalysis) {
  startWithDefaultExample();
  user.menu("mdiReg", "Explore/Notes...");
  EXPECT_EQ(captionOf("lblTitle(1)"), "P shown as 0.000");
  AnalysisState& changed = parts().state;
  for (int i = 1; i <= changed.iNumCases; ++i) changed.sData(i, 1) = changed.sData(i, 2);
  desktop.onMessageBox = [](const MessageBox&) { return Answer::ok; };
  parts().analysis.RunAnalysis();
  EXPECT_EQ(coefficients().grid().remarkOn({3, 5}), "") << "of the analysis before";
  desktop.advance(1000);
  EXPECT_EQ(captionOf("lblTitle(1)"), "No valid fit");
  EXPECT_THAT(parts().frame.lblStatus.caption(), testing::EndsWith("(no valid fit)"));
  EXPECT_EQ(layoutFaults(parts().notesWindow), "");
}

}  // namespace
}  // namespace tolmer::test
