#include "data/designer.h"

#include "course_folder.h"
#include "support/headless_user.h"
#include "support/layout_check.h"
#include "support/script.h"
#include "support/stand_in_editor.h"

namespace tolmer {
namespace {

using test::CourseFolder;
using test::StandInEditor;
using test::StandInScenarios;

// A student before the designer on a small course: rents of four towns with three variables.
class Designer : public testing::Test {
 protected:
  Designer() {
    folder.write("rent.csv",
                 "Town,Rent,Size,Age\nBern,9,3,20\nBasel,8,2,35\nChur,5,2,40\n"
                 "Davos,7,4,10\n");
    folder.write("rent.inf", "Rents of flats\nin francs\nnumber of rooms\nyears of the house\n");
    scenarios.last = {"\\data\\rent.csv", "\\data\\rent.inf", "True", "True", "4", "3", "1"};
    scenarios.standard = scenarios.last;
    mainWindow.reportInnerSize({pixels(1280), pixels(740)});
    mainWindow.reportState(WindowState::maximised);
    state.iDataSource = scenarioExample;
    state.bUseDefaultData = true;
  }

  // Opens the designer and lets the student act; returns when it has closed.
  void design(const std::function<void(frmModelDesign&)>& actions) {
    frmModelDesign designer(desktop, state, {scenarios, folder.programFolder(), &editor},
                            mainWindow);
    script.window("frmModelDesign", [&] { actions(designer); });
    designer.showModal();
    script.finish();
  }
  void click(const char* button) { user.click("frmModelDesign", button); }
  // Marks rows first..last of a list; a single one by a plain click.
  static void mark(Grid& list, int first, int last) {
    list.press({first, 1});
    if (last > first) list.press({last, 1}, {.shift = true, .control = false});
    list.click({last, 1});
  }
  void acceptExample() {
    design([this](frmModelDesign&) { click("cmdOK"); });
  }
  static std::vector<std::string> names(const Grid& list) {
    std::vector<std::string> shown;
    for (int row = 1; row <= list.maxRows(); ++row)
      if (!list.text(row, 2).empty()) shown.push_back(list.text(row, 1) + " " + list.text(row, 2));
    return shown;
  }

  CourseFolder folder;
  HeadlessDesktop desktop;
  test::HeadlessUser user{desktop};
  test::Script script{desktop};
  FrameWindow mainWindow{desktop, "mdiReg", "Tolmer"};
  StandInScenarios scenarios;
  StandInEditor editor;
  AnalysisState state;
};

TEST_F(Designer, OpensOnTheExampleWithItsModel) {
  design([this](frmModelDesign& designer) {
    EXPECT_EQ(designer.caption(), "Variable Selection");
    EXPECT_EQ(designer.txtDepVar.text(), "Col 1  Rent");
    EXPECT_THAT(names(designer.spdVarList),
                testing::ElementsAre("Col 1 Rent", "Col 2 Size", "Col 3 Age"));
    EXPECT_THAT(names(designer.spdIndepVars), testing::ElementsAre("Col 2 Size", "Col 3 Age"));
    EXPECT_EQ(designer.spdVarList.maxRows(), 13);
    EXPECT_EQ(designer.spdVarDefs.maxRows(), 5);
    EXPECT_EQ(designer.spdVarDefs.text(3, 2), "years of the house");
    EXPECT_EQ(designer.txtVblDef.text(), "Col 1   Rent\n\nin francs");
    EXPECT_EQ(designer.txtComments.text(), "Rents of flats");
    EXPECT_EQ(designer.chkUseIntercept.value(), 1);
    EXPECT_TRUE(designer.spdVarList.hasFocus());
    EXPECT_FALSE(designer.requestClose());
    click("cmdHelp");
    EXPECT_EQ(desktop.helpRequests().back().context, 102);
    designer.spdVarList.setFocus();
    user.key("frmModelDesign", {.code = keys::enter});
  });
  EXPECT_TRUE(state.bModelHasChanged);
  EXPECT_EQ(state.iNumPredictors, 2);
  EXPECT_EQ(state.tVarDesc[3], "years of the house");
  EXPECT_TRUE(state.bUseIntercept);
}

TEST_F(Designer, ModelChosenByHand) {
  state.iDataSource = databasePage;
  design([this](frmModelDesign& designer) {
    EXPECT_EQ(designer.txtDepVar.text(), "");
    mark(designer.spdVarList, 3, 3);
    EXPECT_EQ(designer.txtVblDef.text(), "Col 3   Age\n\nyears of the house");
    click("cmdDepVarSelect");
    EXPECT_EQ(designer.txtDepVar.text(), "Col 3  Age");
    mark(designer.spdVarList, 1, 13);
    click("cmdIndVarSelect");
    EXPECT_TRUE(designer.spdVarList.selection().blocks().empty());
    EXPECT_THAT(names(designer.spdIndepVars), testing::ElementsAre("Col 1 Rent", "Col 2 Size"));
    EXPECT_EQ(desktop.lastTold(), "");
    click("cmdIndVarSelect");
    EXPECT_THAT(desktop.lastTold(), testing::StartsWith("Nothing was added"));
    mark(designer.spdIndepVars, 1, 1);
    click("cmdIndVarDeselect");
    EXPECT_THAT(names(designer.spdIndepVars), testing::ElementsAre("Col 2 Size"));
    click("chkUseIntercept");
    click("cmdOK");
  });
  EXPECT_THAT(state.iModelCol, testing::ElementsAre(0, 3, 2, 0));
  EXPECT_FALSE(state.bUseIntercept);
}

TEST_F(Designer, RefusedDependentVariableStaysOnTheScreenAndCountsNoMore) {
  design([this](frmModelDesign& designer) {
    mark(designer.spdVarList, 2, 2);
    script.box("Variable Selection Error",
               "The specified variable is already an independent variable.");
    click("cmdDepVarSelect");
    EXPECT_EQ(designer.txtDepVar.text(), "Col 1  Rent");
    script.box("Model Specification Error", "No dependent variable was named. ");
    click("cmdOK");
    EXPECT_EQ(desktop.boxes().back().box.icon, MessageIcon::exclamation);
    EXPECT_TRUE(designer.visible());
    EXPECT_EQ(state.iNumCases, 0);
    mark(designer.spdVarList, 1, 1);
    click("cmdDepVarSelect");
    click("cmdDepVarDeselect");
    EXPECT_EQ(designer.txtDepVar.text(), "");
    mark(designer.spdVarList, 4, 4);  // an empty row
    script.box("Variable Selection Error", "You have specified no dependent variable.");
    click("cmdDepVarSelect");
    click("cmdCancel");
  });
  EXPECT_TRUE(state.bNewDataRequested);
  EXPECT_EQ(state.iNumCases, 0);
}

TEST_F(Designer, UnchangedModelPassesWithoutACheck) {
  acceptExample();
  state.bModelHasChanged = true;
  state.bChangeModelOnly = true;
  design([this](frmModelDesign& designer) {
    EXPECT_EQ(designer.txtDepVar.text(), "Col 1  Rent");
    click("cmdOK");
  });
  EXPECT_FALSE(state.bModelHasChanged);
  design([this](frmModelDesign&) {
    click("chkUseIntercept");
    click("cmdOK");
  });
  EXPECT_TRUE(state.bModelHasChanged);
  EXPECT_FALSE(state.bUseIntercept);
  design([this](frmModelDesign& designer) {
    EXPECT_EQ(designer.chkUseIntercept.value(), 0);
    click("chkUseIntercept");
    user.key("frmModelDesign", {.code = keys::escape});
  });
  EXPECT_FALSE(state.bModelHasChanged);
  EXPECT_FALSE(state.bUseIntercept);
  EXPECT_FALSE(state.bNewDataRequested);
}

class DesignerOnEditorData : public Designer {
 protected:
  DesignerOnEditorData() {
    editor.cases = 3;
    editor.variables = {{"Y", {1, 2, 4}}, {"X", {3, 5, 4}}};
    state.iDataSource = dataEditor;
    state.bChangeDataOnly = true;
  }
};

TEST_F(DesignerOnEditorData, CancelOpensTheEditorAgainAndItsOkBringsNewData) {
  editor.onShow = [this] {
    editor.variables.insert(editor.variables.begin(), {"Zero", {0, 0, 0}});
    editor.variables.push_back({"Z", {7, 8, 9}});
    editor.description = {"Source: a.sav", "left out", "", "What X is", "What Z is"};
  };
  design([this](frmModelDesign& designer) {
    EXPECT_FALSE(designer.fraComments.visible() || designer.fraVarDefs.visible());
    click("cmdCancel");
    EXPECT_TRUE(designer.visible());
    EXPECT_EQ(names(designer.spdVarList).size(), 3U);
    EXPECT_EQ(designer.txtComments.text(), "Source: a.sav");
    EXPECT_TRUE(designer.fraVarDefs.visible());
    EXPECT_EQ(names(designer.spdVarDefs), (std::vector<std::string>{"X What X is", "Z What Z is"}));
    editor.onShow = [this] { editor.cancelled = true; };
    click("cmdCancel");
    EXPECT_FALSE(designer.visible());
  });
  EXPECT_EQ(editor.shown, 2);
  EXPECT_FALSE(state.bModelHasChanged);
  EXPECT_FALSE(state.bNewDataRequested);
}

TEST_F(DesignerOnEditorData, FormerModelIsChosenAgainByItsNamesWhereTheyAreAllThere) {
  design([this](frmModelDesign& designer) {
    EXPECT_FALSE(designer.cmdFormerModel.visible()) << "there is none yet";
    mark(designer.spdVarList, 2, 2);
    click("cmdDepVarSelect");
    mark(designer.spdVarList, 1, 1);
    click("cmdIndVarSelect");
    click("chkUseIntercept");
    click("cmdOK");
  });
  editor.variables = {{"Z", {7, 8, 9}}, {"X", {3, 5, 4}}, {"Y", {1, 2, 5}}};
  design([this](frmModelDesign& designer) {
    EXPECT_EQ(test::layoutFaults(designer.picControls), "");
    click("cmdFormerModel");
    EXPECT_EQ(designer.txtDepVar.text(), "Col 2  X");
    EXPECT_THAT(names(designer.spdIndepVars), testing::ElementsAre("Col 3 Y"));
    click("cmdOK");
  });
  EXPECT_FALSE(state.bUseIntercept);
  editor.variables.pop_back();
  design([this](frmModelDesign& designer) {
    EXPECT_FALSE(designer.cmdFormerModel.visible());
    editor.cancelled = true;
    click("cmdCancel");
  });
}

TEST_F(Designer, BothPlacementsAreTidyWithAndWithoutDefinitions) {
  for (const bool starting : {true, false}) {
    for (const bool info : {true, false}) {
      state = {};
      state.iDataSource = scenarioExample;
      state.bUseDefaultData = true;
      state.bStartingUp = starting;
      scenarios.standard[2] = info ? "True" : "False";
      design([&](frmModelDesign& designer) {
        EXPECT_EQ(test::layoutFaults(designer.picControls), "");
        EXPECT_EQ(designer.pnlGround.visible(), starting);
        const Panel& panel = designer.picControls;
        EXPECT_EQ(panel.border(), starting);
        EXPECT_EQ(panel.height(), starting ? (info ? 5700 : 3700) : (info ? 6000 : 4000));
        if (starting) {
          EXPECT_EQ(panel.right(), designer.width() - 100);
          EXPECT_EQ(panel.bottom(), designer.height() - 800);
          EXPECT_EQ(designer.width(), mainWindow.innerWidth());
        } else {
          EXPECT_EQ(panel.width(), designer.width());
          EXPECT_EQ(panel.height(), designer.height());
          EXPECT_EQ(designer.left(), (desktop.screenSize().width - designer.width()) / 2);
        }
        click("cmdCancel");
      });
    }
  }
}

}  // namespace
}  // namespace tolmer
