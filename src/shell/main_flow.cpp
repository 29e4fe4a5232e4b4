#include "shell/main_flow.h"

#include <utility>

#include "base/program_version.h"
#include "data/designer.h"
#include "data/model_choice.h"
#include "notebook/cover.h"
#include "notebook/notebook_window.h"
#include "shell/hint.h"

namespace tolmer {
namespace {

constexpr const char* moduleTitle = "Tolmer";
constexpr const char* loadingCaption = "Preparing Chapter 17 - Multiple Regression Analysis";
constexpr const char* notebookFile = "tolmod.nbo";
constexpr const char* iconFile = "tolmer.svg";
constexpr Int16 sectionOfOwnData = 5;

}  // namespace

MainFlow::MainFlow(ShellParts& parts) : parts_(parts), state_(parts.state) {
  parts_.panel.changeModel = [this] { changeModel(); };
  parts_.panel.showNotebook = [this] { showNotebook(); };
  parts_.panel.changeDataSource = [this] { changeDataSource(); };
  parts_.analysis.RestoreInitialDisplays = [this] { parts_.manager.RestoreInitialDisplays(); };
  parts_.frame.QueryUnload = [this](bool& bCancel) {
    bCancel = !parts_.ownData.mayEndProgram();
    if (!bCancel) state_.bAllowUnload = true;
  };
  parts_.frame.Dropped = [this](const DroppedItems& items) { openDropped(items); };
  parts_.frame.Unload = [this] { ExitModule(); };
}

void MainFlow::Main() {
  state_.bStartingUp = true;
  parts_.about.ModuleTitleLine1 = moduleTitle;
  parts_.about.ModuleVersion = std::string("Version 2.00 (") + programVersion() + ")";
  parts_.about.imgIcon.setFile(parts_.tProgramFolder + "/" + iconFile);
  readNotebook();
  showMainWindow();
  parts_.notebook.ShowHider = true;
  coverScreen();
  state_.bAppIsLoading = false;
  parts_.ownData.tellLostWork();
  startNotebook();
  askWhetherToExit();
  tickOptions();
  parts_.frame.mbProcessMainResize = true;
  state_.bStartingAnalysis = true;
  loadUntilModelStands();
  state_.bStartingAnalysis = false;
  parts_.notebook.ShowHider = false;
  uncoverScreen();
  FinishStartup();
  state_.bStartingUp = false;
  parts_.notes.renew();
}

// A data file to begin with goes the way of the student's own data.
void MainFlow::startNotebook() {
  if (parts_.fileAtStart.empty()) return parts_.notebook.StartAndShowNotebook();
  parts_.ownData.editor().openAtNextVisit({parts_.fileAtStart});
  parts_.notebook.StartOnPage(sectionOfOwnData, 1);
}

// From the notebook it is as if OK was pressed on the page of own data; beside an analysis, as if
// those were the data in force and were changed.
void MainFlow::openDropped(const DroppedItems& items) {
  const bool notebookAsks = parts_.notebook.window().visible();
  if (state_.bStartingUp && !notebookAsks) return;
  auto file = droppedFile(items, parts_.desktop);
  if (!file) return;
  parts_.ownData.editor().openAtNextVisit(std::move(*file));
  if (notebookAsks) {
    parts_.notebook.window().goTo(sectionOfOwnData, 1);
    return parts_.notebook.window().cmdOK.click();
  }
  const Int16 iDataSource = std::exchange(state_.iDataSource, Int16{dataEditor});
  if (!editData()) state_.iDataSource = iDataSource;
  parts_.panel.SetupChangeDataSourceButton();
}

void MainFlow::readNotebook() {
  state_.bAppIsLoading = true;
  parts_.notebook.frmAppForm = &parts_.frame;
  parts_.notebook.tProgramFolder = parts_.tProgramFolder;
  parts_.notebook.loadHider = [this] { coverScreen(); };
  parts_.notebook.unloadHider = [this] { uncoverScreen(); };
  parts_.notebook.ModuleTitleLine = loadingCaption;
  parts_.notebook.LoadNotebook();
  parts_.notebook.ReadObjectFile(parts_.tProgramFolder + "/" + notebookFile);
  parts_.notebook.window().Dropped = [this](const DroppedItems& items) { openDropped(items); };
  if (frmNoteSplash* cover = parts_.notebook.cover()) cover->ShowAnotherLoadingDot();
}

void MainFlow::showMainWindow() {
  parts_.frame.mbProcessMainResize = false;
  state_.bDisplaysReady = false;
  parts_.frame.show();
  parts_.desktop.setBusyPointer(false);
}

void MainFlow::coverScreen() {
  if (!hider_) {
    hider_ = std::make_unique<frmHider>(parts_.desktop);
    hider_->pnlHider.Click = [this] {
      if (frmNoteSplash* cover = parts_.notebook.cover()) cover->bUserClickeCover = true;
    };
  }
  hider_->cover();
}

void MainFlow::tickOptions() {
  state_.bShowRegressionLine = true;
  state_.bShowCorrelation = true;
  state_.bSavedRegressionLine = true;
  state_.bSavedCorrelation = true;
  parts_.frame.mnuShowRegression.setChecked(true);
  parts_.frame.mnuShowCorrelation.setChecked(true);
}

// Comes back when the student stays.
void MainFlow::askWhetherToExit() {
  while (parts_.notebook.LastAction() == NoteBook::closedByCancel) {
    const Answer answer = parts_.desktop.messageBox(
        {moduleTitle, "Exit module?", MessageIcon::question, MessageButtons::yesNo});
    if (answer == Answer::yes) parts_.frame.requestClose();
    parts_.notebook.ShowNotebook();
  }
}

void MainFlow::loadUntilModelStands() {
  LoadModelAndData();
  while (state_.bNewDataRequested) {
    state_.bNewDataRequested = false;
    parts_.notebook.ShowNotebook();
    askWhetherToExit();
    LoadModelAndData();
  }
}

void MainFlow::LoadModelAndData() {
  if (!takeDataSource()) return;
  state_.bChangeModelOnly = false;
  state_.bChangeDataOnly = false;
  showDesigner();
  // OK on the empty designer of a page that brings no data: only another page can.
  if (!hasModel(state_)) state_.bNewDataRequested = true;
  if (state_.bNewDataRequested) return;
  parts_.analysis.RunAnalysis();
  parts_.panel.SetupChangeDataSourceButton();
}

// False where the notebook's page opens no data.
bool MainFlow::takeDataSource() {
  const int section = parts_.notebook.LastSectionNumber();
  const bool pageHasData = parts_.notebook.LastPageNumber() > 1;
  if (section == 2 || section == 6) return false;
  if (section == sectionOfOwnData) return takeEditorData();
  if (section == 1 || (section == 3 && pageHasData)) {
    state_.iDataSource = scenarioExample;
    state_.bUseDefaultData = section == 1;
    return !state_.bNewDataRequested;
  }
  if (section == 4 && pageHasData) {
    state_.iDataSource = databasePage;
    state_.bUseDefaultData = false;
  }
  return true;
}

// After Cancel the source stays what it was; where there is no analysis yet to go back to, the
// notebook comes back.
bool MainFlow::takeEditorData() {
  parts_.editor->ShowDataEditor();
  if (parts_.editor->UserCancel()) {
    state_.bNewDataRequested = state_.bStartingUp;
    return false;
  }
  state_.iDataSource = dataEditor;
  return true;
}

void MainFlow::showDesigner(bool keepsModel) {
  frmModelDesign designer(parts_.desktop, state_,
                          {*this, parts_.tProgramFolder, parts_.editor, keepsModel}, parts_.frame);
  designer.ShowInitialChildren = [this] { parts_.manager.ShowInitialChildren(); };
  designer.showModal();
}

void MainFlow::FinishStartup() {
  state_.bStartingAnalysis = false;
  parts_.frame.mnuFileReport.setEnabled(true);
  parts_.frame.mnuFilePrint.setEnabled(true);
  showHint();
}

void MainFlow::showHint() {
  frmHint hint(parts_.desktop, parts_.tProgramFolder);
  hint.showHint();
}

void MainFlow::ShowHelpTopic(long lContext) {
  using Kind = HelpRequest::Kind;
  const Kind kind = lContext == helpOnHelp   ? Kind::usingHelp
                    : lContext == helpSearch ? Kind::search
                                             : Kind::topic;
  parts_.desktop.showHelp({.file = helpFile, .kind = kind, .context = lContext});
}

void MainFlow::ExitModule() {
  state_.bAllowUnload = true;
  parts_.desktop.showHelp({.file = helpFile, .kind = HelpRequest::Kind::quit});
  parts_.desktop.activateProgram(suiteTitle);
  parts_.desktop.doEvents();
  parts_.desktop.endProgram(0);
}

void MainFlow::changeModel() {
  state_.bChangeModelOnly = true;
  state_.bChangeDataOnly = false;
  showDesigner();
  if (state_.bModelHasChanged) parts_.analysis.RunAnalysis();
}

void MainFlow::editCopy() {
  if (state_.iDataSource == dataEditor || !hasModel(state_)) return;
  if (state_.iNumCases > editorObservations || state_.iNumCols > editorVariables) {
    parts_.desktop.messageBox(
        {"Edit a Copy of These Data",
         "These data have more cases or variables than the Data Editor takes.",
         MessageIcon::information});
    return;
  }
  const std::string name = dataSetName(state_);
  frmDataEditor& editor = parts_.ownData.editor();
  if (!editor.mayGiveWayTo("the copy of " + name)) return;
  editor.takeOverAtNextVisit(OwnData::sheetOf(state_), name);
  const Int16 iDataSource = std::exchange(state_.iDataSource, Int16{dataEditor});
  if (!editData(true)) state_.iDataSource = iDataSource;
  parts_.panel.SetupChangeDataSourceButton();
}

void MainFlow::takeUpModel(const ModelRecord& record) {
  state_.bChangeModelOnly = true;
  state_.bChangeDataOnly = false;
  WorkingCopy copy;
  CopyGlobalVarsToModule(copy, state_);
  copy.mbUseIntercept = record.intercept;
  // Behind the last predictor stands a 0.
  SpecifyModel(copy, {record.modelCol.begin() + 1, record.modelCol.end() - 1});
  CopyModuleVarsToGlobal(copy, state_);
  parts_.analysis.RunAnalysis();
}

// A choice of data that is given up leaves the source of those in force, which the panel's button
// leads to.
void MainFlow::showNotebook() {
  const Int16 iDataSource = state_.iDataSource;
  const bool bUseDefaultData = state_.bUseDefaultData;
  do {
    state_.bNewDataRequested = false;
    parts_.notebook.ShowNotebook();
    parts_.desktop.doEvents();
    const bool bLeft = parts_.notebook.LastAction() == NoteBook::closedByCancel;
    if (!bLeft) LoadModelAndData();
    if (bLeft || state_.bNewDataRequested) {
      state_.iDataSource = iDataSource;
      state_.bUseDefaultData = bUseDefaultData;
    }
  } while (state_.bNewDataRequested);
}

void MainFlow::changeDataSource() {
  if (state_.iDataSource == dataEditor)
    editData(state_.uOrigin.copy.has_value());
  else if (state_.iDataSource == databasePage || state_.iDataSource == scenarioExample)
    showNotebook();
}

// Whether there is a new analysis.
bool MainFlow::editData(bool keepsModel) {
  parts_.editor->ShowDataEditor();
  if (parts_.editor->UserCancel()) return false;
  state_.bChangeModelOnly = false;
  state_.bChangeDataOnly = true;
  showDesigner(keepsModel);
  if (state_.bModelHasChanged) parts_.analysis.RunAnalysis();
  return state_.bModelHasChanged;
}

std::string MainFlow::LastScenarioParameter(int iIndex) const {
  return parts_.notebook.LastScenarioParameter(iIndex);
}

std::string MainFlow::DefaultScenarioParameter(int iIndex) const {
  return parts_.notebook.DefaultScenarioParameter(iIndex);
}

}  // namespace tolmer
