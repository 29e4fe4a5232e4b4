// Journeys of a student through the whole program, on the shipped course.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/file_io.h"
#include "displaywindows/table_window.h"
#include "notebook/cover.h"
#include "notebook/notebook_window.h"
#include "platform/graph/graph.h"
#include "platform/grid/grid.h"
#include "sheet/sheet_content.h"
#include "sheetfiles/visit_files.h"
#include "shell/shipped_program.h"
#include "support/designer_student.h"
#include "support/stand_in_editor.h"
#include "support/temp_folder.h"

namespace tolmer::test {
namespace {

class Journey : public ShippedProgram {};

TEST_F(Journey, DefaultExampleFillsTheQuadrants) {
  startWithDefaultExample();
  EXPECT_EQ(state().iNumCases, 21);
  EXPECT_EQ(state().iNumPredictors, 3);
  EXPECT_EQ(state().iCompletedFits, 1);
  EXPECT_FALSE(state().bStartingUp);
  EXPECT_EQ(user.window("frmEstCoef").tag(), "11");
  EXPECT_EQ(user.window("frmControlPanel").tag(), "12");
  EXPECT_EQ(user.window("frmANOVA").tag(), "21");
  EXPECT_EQ(user.window("frmResidHist").tag(), "22");
  EXPECT_THAT(module.parts().panel.txtFittedModel.text(), testing::StartsWith("StackLoss = "));
  EXPECT_EQ(module.parts().panel.cmdChangeDataSource.caption(), "Select &Example");
  EXPECT_THAT(desktop.boxes(), testing::IsEmpty());
  module.parts().frame.activate(module.parts().panel);
  module.parts().panel.txtFittedModel.setFocus();
  user.menu("mdiReg", "Edit/Copy");
  EXPECT_EQ(desktop.clipboard().text, module.parts().panel.txtFittedModel.text());
}

TEST_F(Journey, AboutShowsTitleVersionAndIcon) {
  startWithDefaultExample();
  script.window("frmAbout", [&] {
    const frmAbout& about = module.parts().about;
    EXPECT_EQ(about.lblTitle1.caption(), "Tolmer");
    EXPECT_EQ(about.lblVersion.caption(), "Version 2.00");
    EXPECT_TRUE(std::filesystem::exists(about.imgIcon.file()));
    user.click("frmAbout", "cmdOK");
  });
  user.menu("mdiReg", "Help/About...");
}

TEST_F(Journey, WorktextIsHandedToTheProgramThatOpensItOrWhatIsWrongIsTold) {
  startWithDefaultExample();
  const TempFolder course, unreadable;
  std::filesystem::create_symlink("Worktext", unreadable.file("Worktext"));
  for (const std::string& folder : {std::string("no such folder"), unreadable.path()}) {
    module.parts().tProgramFolder = folder;
    script.box("Worktext not Found",
               "Either your Zelmar CD has been removed from your CD reader or your Worktext files "
               "have been moved!");
    user.menu("mdiReg", "File/View Worktext");
  }
  std::filesystem::create_directory(course.file("Worktext"));
  const std::string worktext = course.file("Worktext/Ch17.pdf");
  ASSERT_FALSE(writeFileAtomically(worktext, "%PDF"));
  module.parts().tProgramFolder = course.path();
  std::string opened;
  desktop.onOpenDocument = [&](const std::string& path) {
    opened = path;
    return true;
  };
  user.menu("mdiReg", "File/View Worktext");
  EXPECT_EQ(opened, worktext);
  desktop.onOpenDocument = nullptr;
  script.box("Worktext", "No program of this computer opens " + worktext + ".");
  user.menu("mdiReg", "File/View Worktext");
}

TEST_F(Journey, CancelInTheNotebookAsksAndStaysOnNo) {
  script.window("frmOpeningBook");
  script.window("frmNotebook", [&] { user.click("frmNotebook", "cmdCancel"); });
  script.box("Tolmer", "Exit module?", Answer::no);
  script.window("frmNotebook", [&] { user.click("frmNotebook", "cmdCancel"); });
  script.box("Tolmer", "Exit module?", Answer::yes);
  EXPECT_THROW(module.Main(), ProgramEnded);
  EXPECT_TRUE(desktop.ended());
  EXPECT_EQ(state().iCompletedFits, 0);
}

TEST_F(Journey, WorkLostByACrashIsToldAtTheStartAndOfferedByTheEditor) {
  const TempFolder aside;
  VisitFolder places(aside.path());
  {
    Autosave crashed(&places, [time = 0]() mutable { return time += 10000; });
    crashed.changed();
    SheetContent content = newContent(editorObservations, editorVariables);
    content.cells(2, 1) = {.kind = DataCell::Kind::number, .number = 42};
    ASSERT_FALSE(crashed.poll([&] { return content; }, ""));
  }
  const std::string time = localTime(places.lost().front()->written());
  module.parts().aside = &places;
  script.box("Unsaved Data", "The program ended before the data in the Data Editor were saved (" +
                                 time +
                                 "). Open the Data Editor from the Notebook to bring them back.");
  script.window("frmOpeningBook");
  script.window("frmNotebook", [&] {
    module.parts().notebook.window().goTo(5, 1);
    user.click("frmNotebook", "cmdOK");
  });
  script.box("Unsaved Data",
             "The program ended before its data were saved (" + time +
                 "). Do you want to bring them back?",
             Answer::yes);
  script.window("frmDataEditor", [&] {
    EXPECT_EQ(module.parts().ownData.editor().sheet().value(2, 1), 42);
    user.click("frmDataEditor", "cmdCancel");
  });
  script.box("Data Changed", "There is unsaved data in the Data Editor. Do you want to save it?",
             Answer::no);
  script.window("frmNotebook", [&] { user.click("frmNotebook", "cmdCancel"); });
  script.box("Tolmer", "Exit module?", Answer::yes);
  EXPECT_THROW(module.Main(), ProgramEnded);
  EXPECT_TRUE(places.lost().empty());
}

TEST_F(Journey, EveryEndAsksOnceAboutUnsavedDataOfOnesOwn) {
  const MessageBox unsaved{"Unsaved Data",
                           "The data in the Data Editor have not been saved. Do you want to save "
                           "them before the program ends?",
                           MessageIcon::question, MessageButtons::saveDontSaveCancel};
  module.parts().ownData.editor().sheet().enter(1, 1, "5");
  script.window("frmOpeningBook");
  script.window("frmNotebook", [&] { user.click("frmNotebook", "cmdCancel"); });
  script.box("Tolmer", "Exit module?", Answer::yes);
  script.box(unsaved, Answer::cancel);
  script.window("frmNotebook", [&] { user.click("frmNotebook", "cmdOK"); });
  script.window("frmModelDesign", [&] { user.click("frmModelDesign", "cmdOK"); });
  script.window("frmHint", [&] { user.click("frmHint", "cmdOK"); });
  module.Main();
  script.box(unsaved, Answer::cancel);
  user.menu("mdiReg", "File/Exit");
  EXPECT_FALSE(desktop.ended() || state().bAllowUnload);
  script.box(unsaved, Answer::no);
  EXPECT_THROW(user.close("mdiReg"), ProgramEnded);
}

TEST_F(Journey, LostWorkThatCannotBeReadIsToldAsSuch) {
  const TempFolder aside;
  VisitFolder places(aside.path());
  const std::string work = aside.file("visit-abcdef.zmm");  // without its lock file
  ASSERT_FALSE(writeFileAtomically(work, "damaged"));
  module.parts().aside = &places;
  script.box("Unsaved Data",
             "The program ended before the data in the Data Editor were saved (" +
                 localTime(*secondsWritten(work)) +
                 "), and the copy that it kept of them cannot be read. Open the Data Editor from "
                 "the Notebook to keep or delete it.");
  script.window("frmOpeningBook");
  script.window("frmNotebook", [&] { user.click("frmNotebook", "cmdCancel"); });
  script.box("Tolmer", "Exit module?", Answer::yes);
  EXPECT_THROW(module.Main(), ProgramEnded);
}

TEST_F(Journey, ChangeOfModelRefitsOnlyWhenSomethingChanged) {
  startWithDefaultExample();
  script.window("frmModelDesign", [&] { user.click("frmModelDesign", "cmdOK"); });
  user.click("frmControlPanel", "cmdChangeModel");
  EXPECT_EQ(state().iCompletedFits, 1);

  script.window("frmModelDesign", [&] {
    user.click("frmModelDesign", "chkUseIntercept");
    user.click("frmModelDesign", "cmdOK");
  });
  user.click("frmControlPanel", "cmdChangeModel");
  EXPECT_EQ(state().iCompletedFits, 2);
  EXPECT_FALSE(state().bUseIntercept);
  EXPECT_EQ(state().iNumTerms, 3);
}

TEST_F(Journey, AChoiceOfDataThatIsGivenUpLeavesTheSource) {
  StandInEditor editor;
  editor.cases = 6;
  editor.variables = {{"x", {1, 2, 3, 4, 5, 7}}, {"y", {2, 4, 5, 4, 5, 9}}};
  module.parts().editor = &editor;
  startWithDefaultExample();
  const auto choosePage = [&](int section, int page) {
    script.window("frmNotebook", [this, section, page] {
      module.parts().notebook.window().goTo(section, page);
      user.click("frmNotebook", "cmdOK");
    });
  };
  choosePage(5, 1);
  script.window("frmModelDesign", [&] {
    DesignerStudent(dynamic_cast<frmModelDesign&>(user.window("frmModelDesign")), 1).chooseModel();
    user.click("frmModelDesign", "cmdOK");
  });
  user.click("frmControlPanel", "cmdShowNotebook");
  ASSERT_EQ(state().iDataSource, dataEditor);

  choosePage(4, 2);
  script.window("frmModelDesign", [&] { user.click("frmModelDesign", "cmdCancel"); });
  script.window("frmNotebook", [&] { user.click("frmNotebook", "cmdCancel"); });
  user.click("frmControlPanel", "cmdShowNotebook");
  EXPECT_EQ(state().iDataSource, dataEditor);
  const int shown = editor.shown;
  editor.cancelled = true;
  user.click("frmControlPanel", "cmdChangeDataSource");
  EXPECT_EQ(editor.shown, shown + 1);
}

TEST_F(Journey, ARefitRestoresAMaximisedPanel) {
  startWithDefaultExample();
  user.maximise("frmControlPanel");
  module.parts().analysis.RunAnalysis();
  EXPECT_EQ(user.window("frmControlPanel").state(), WindowState::normal);
  EXPECT_TRUE(user.window("frmResidHist").visible());
}

TEST_F(Journey, ThePanelCannotBeReplacedAndDisplaysCannotBeClosed) {
  startWithDefaultExample();
  module.parts().frame.activate(module.parts().panel);
  EXPECT_THROW(user.menu("mdiReg", "Displays/Tables/ANOVA Calculations"), std::runtime_error);
  module.parts().state.frmCurrentDisplay = &module.parts().panel;
  module.parts().manager.ShowNewWindow(graphDisplays, 2);
  EXPECT_TRUE(module.parts().panel.visible());
  user.close("frmEstCoef");
  user.close("frmControlPanel");
  EXPECT_TRUE(user.window("frmEstCoef").visible() && user.window("frmControlPanel").visible());

  script.box("", "Error in ShowNewWindow");
  module.parts().manager.ShowNewWindow(4, 6);
}

// What an unfinished fit leaves in the record are old numbers.
TEST_F(Journey, AFailedFitIsMarkedInEveryTitleBarUntilTheNextGoodOne) {
  startWithDefaultExample();
  AnalysisState& changed = module.parts().state;
  const float kept = changed.sData(1, 1);
  for (int i = 1; i <= changed.iNumCases; ++i) changed.sData(i, 1) = changed.sData(i, 2);
  const std::string singular =
      "Singular variance-covariance matrix. Check X matrix for duplicate variables.";
  for (int fit = 0; fit < 4; ++fit) script.box("", singular);
  script.box("", "Warning: 21 residuals lie outside the histogram classes in FreqTallyDec.");
  module.parts().analysis.RunAnalysis();
  for (const char* display : {"frmEstCoef", "frmANOVA", "frmResidHist"})
    EXPECT_THAT(user.window(display).caption(), testing::EndsWith(" (no valid fit)"));
  script.finish();

  changed.sData(1, 1) = kept;
  module.parts().analysis.RunAnalysis();
  EXPECT_EQ(user.window("frmResidHist").caption(), "Histogram of Residuals");
}

TEST_F(Journey, AResizeBehindAMessageOfTheFitMixesNoNumbers) {
  startWithDefaultExample();
  AnalysisState& changed = module.parts().state;
  for (int i = 1; i <= changed.iNumCases; ++i) changed.sData(i, 1) = changed.sData(i, 2);
  const Grid& anova =
      dynamic_cast<TableWindow&>(*module.parts().displays.display(tableDisplays, 2)).grid();
  const Plot& histogram = module.parts().displays.display(graphDisplays, 1)->GraphPointer->plot();
  int boxes = 0;
  desktop.onMessageBox = [&](const MessageBox&) {
    for (const char* display : {"frmANOVA", "frmResidHist"}) {
      user.window(display).setState(WindowState::maximised);
      user.window(display).setState(WindowState::normal);
    }
    EXPECT_EQ(anova.text(2, 2), "");
    EXPECT_EQ(histogram.settings.y.title, "Frequency");
    ++boxes;
    return Answer::ok;
  };
  module.parts().analysis.RunAnalysis();
  EXPECT_GT(boxes, 0);
  EXPECT_NE(anova.text(2, 2), "");
}

TEST_F(Journey, ClickOnTheCurtainCountsAsOneOnTheCover) {
  Module other(desktop, "no such folder");
  desktop.onMessageBox = [&](const MessageBox& box) {  // while the cover is up
    EXPECT_EQ(box.text, "Cannot read notebook object file.");
    const frmNoteSplash& cover = *other.parts().notebook.cover();
    EXPECT_FALSE(cover.bUserClickeCover);
    user.click("frmHider", "pnlHider");
    EXPECT_TRUE(cover.bUserClickeCover);
    return Answer::ok;
  };
  EXPECT_THROW(other.Main(), ProgramEnded);
}

}  // namespace
}  // namespace tolmer::test
