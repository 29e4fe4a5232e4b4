// Journeys of a student through the whole program, on the shipped course: among others from every
// example and database in the notebook to a fit.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/file_io.h"
#include "data/designer.h"
#include "displaywindows/table_window.h"
#include "notebook/cover.h"
#include "notebook/notebook_window.h"
#include "platform/graph/graph.h"
#include "platform/grid/grid.h"
#include "platform/user_input.h"
#include "sheet/new_sheet.h"
#include "sheet/sheet_content.h"
#include "sheetfiles/autosave_folder.h"
#include "shell/shipped_program.h"
#include "support/temp_folder.h"

namespace tolmer::test {
namespace {

// Journeys of a student through the whole program, on the shipped course.
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

TEST_F(Journey, OptionsReachEveryScatterPlotOnTheScreenAndDisplaysMayStayThroughARefit) {
  startWithDefaultExample();
  frmControlPanel& panel = module.parts().panel;
  const char* line = "Options/Display Regression Line on Scatterplots";
  for (const auto& [window, plot] : {std::pair{"frmEstCoef", 1}, {"frmResidHist", 2}}) {
    user.window(window).activate();
    module.parts().manager.bringUp(*findDisplay({scatterDisplays, plot}));
  }
  EXPECT_FALSE(panel.tmrFlashUpdate.enabled());
  user.menu("mdiReg", line);
  EXPECT_TRUE(panel.tmrFlashUpdate.enabled() && panel.isOutOfDate(1) && panel.isOutOfDate(2));
  user.click("frmControlPanel", "cmdUpdateGraphs");
  EXPECT_FALSE(panel.tmrFlashUpdate.enabled() || panel.isOutOfDate(1) || panel.isOutOfDate(2));
  user.click("frmANOVA", "spdANOVA");
  user.menu("mdiReg", line);
  EXPECT_FALSE(panel.tmrFlashUpdate.enabled() || panel.isOutOfDate(1)) << "nobody could press it";
  user.window("frmScatterPlot2").activate();
  EXPECT_TRUE(panel.cmdUpdateGraphs.canBeUsed());
  user.menu("mdiReg", "Displays/Tables/Data List");
  EXPECT_FALSE(panel.cmdUpdateGraphs.canBeUsed()) << "the plot that it edited is gone";

  for (const bool keeps : {true, false}) {
    user.menu("mdiReg", "Options/Keep Displays After a Refit");
    script.window("frmModelDesign", [&] {
      user.click("frmModelDesign", "chkUseIntercept");
      user.click("frmModelDesign", "cmdOK");
    });
    user.click("frmControlPanel", "cmdChangeModel");
    EXPECT_EQ(state().iDisplayState(scatterDisplays, 1) == displayShown, keeps);
  }
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
  script.box("Worktext", "No program of this computer opens " + worktext +
                             ". Install one that shows PDF documents.");
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

TEST_F(Journey, AFileNamedAtTheStartIsOpenedInTheEditor) {
  const TempFolder folder;
  ASSERT_FALSE(writeFileAtomically(folder.file("own.csv"), "A,B\n1.5,2\n2,4.5\n3,5\n4,9\n"));
  module.parts().fileAtStart = folder.file("own.csv");
  script.window("frmOpeningBook");
  script.window("frmTextImport", [&] { user.click("frmTextImport", "cmdOK"); });
  script.window("frmDataEditor", [&] {
    EXPECT_EQ(module.parts().ownData.editor().sheet().value(2, 2), 4.5);
    user.click("frmDataEditor", "cmdCancel");
  });
  script.window("frmNotebook", [&] { user.click("frmNotebook", "cmdCancel"); });
  script.box("Tolmer", "Exit module?", Answer::yes);
  EXPECT_THROW(module.Main(), ProgramEnded);
}

TEST_F(Journey, ADroppedFileIsOpenedInTheEditorFromWhereverItFell) {
  const TempFolder folder;
  const std::string name = folder.file("own.csv");
  ASSERT_FALSE(writeFileAtomically(name, "A,B\n1.5,2\n2,4.5\n3,5\n4,9\n"));
  const auto drop = [&](const DroppedItems& items) {
    takerOfDrops(desktop.modalWindow(), desktop.windows())->Dropped(items);
  };
  const auto lookAndCancel = [&] {
    EXPECT_EQ(module.parts().ownData.editor().sheet().value(2, 2), 4.5);
    user.click("frmDataEditor", "cmdCancel");
  };
  script.window("frmOpeningBook");
  script.window("frmNotebook", [&] { drop({{name}, {}}); });
  script.window("frmTextImport", [&] { user.click("frmTextImport", "cmdOK"); });
  script.window("frmDataEditor", lookAndCancel);
  script.window("frmNotebook", [&] {
    module.parts().notebook.window().goTo(1, 1);
    user.click("frmNotebook", "cmdOK");
  });
  script.window("frmModelDesign", [&] {
    EXPECT_FALSE(takerOfDrops(desktop.modalWindow(), desktop.windows()));
    user.click("frmModelDesign", "cmdOK");
  });
  script.window("frmHint", [&] { user.click("frmHint", "cmdOK"); });
  module.Main();
  script.finish();

  script.box({"Open", folder.path() + " is a folder. Drop one of the files in it.",
              MessageIcon::exclamation});
  drop({{folder.path()}, {}});
  script.window("frmTextImport", [&] { user.click("frmTextImport", "cmdOK"); });
  script.window("frmDataEditor", [&] {
    EXPECT_EQ(module.parts().ownData.editor().lblStatus.caption(),
              "Of 3 files that were dropped only the first was opened, own.csv.");
    lookAndCancel();
  });
  drop({{name, name}, {"https://example.org/"}});
  EXPECT_EQ(state().iDataSource, scenarioExample);
  script.finish();
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

// Every example and database of the shipped course, from its place in the notebook to a fit.
constexpr int databasesSection = 4;  // where the student chooses the model

class WholeCourse : public ShippedProgram {
 protected:
  void SetUp() override { startWithDefaultExample(); }
  NoteBook& notebook() { return module.parts().notebook; }

  // The suggested dependent variable on the column beside it.
  static void chooseModel(frmModelDesign& designer, int dependent) {
    const int predictor = dependent > 1 ? dependent - 1 : 2;
    designer.spdVarList.press({dependent, 1});
    designer.cmdDepVarSelect.click();
    designer.spdVarList.press({predictor, 1});
    designer.cmdIndVarSelect.click();
  }

  // Any message box on the way fails the test.
  void openAndFit(int section, int page, int option, const Scenario& scenario) {
    SCOPED_TRACE(scenario.tName);
    const auto fits = state().iCompletedFits;
    script.window("frmNotebook", [&] {
      notebook().window().goTo(section, page);
      user.click("frmNotebook", "optScenario(" + std::to_string(option) + ")");
      user.click("frmNotebook", "cmdOK");
    });
    script.window("frmModelDesign", [&] {
      auto& designer = dynamic_cast<frmModelDesign&>(user.window("frmModelDesign"));
      if (section == databasesSection) chooseModel(designer, std::stoi(scenario.tParameter[7]));
      user.click("frmModelDesign", "cmdOK");
    });
    user.click("frmControlPanel", "cmdShowNotebook");
    script.finish();
    EXPECT_EQ(state().iCompletedFits, fits + 1);
    EXPECT_FALSE(state().Fit.bSingular);
    EXPECT_EQ(std::to_string(state().iNumCases), scenario.tParameter[5]);
  }
};

TEST_F(WholeCourse, LeadsFromEveryScenarioToAFit) {
  int opened = 0;
  const Book& book = notebook().book();
  for (int section = 1; section <= book.uSection.count(); ++section)
    for (int page = 1; page <= book.uSection[section].iNumPages; ++page) {
      const ScenarioElement list =
          book.uScenarioElement[notebook().page(section, page).iScenarioElement];
      for (int i = 0; i < list.iNumScenarios; ++i, ++opened)
        openAndFit(section, page, i, book.uScenario[list.iFirstScenario + i]);
    }
  EXPECT_EQ(opened, book.uScenario.count());
}

}  // namespace
}  // namespace tolmer::test
