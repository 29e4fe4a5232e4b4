#include "data/designer.h"

#include "data/data_file.h"
#include "data/model_check.h"
#include "data/model_choice.h"
#include "data/model_transfer.h"
#include "data/show_data.h"
#include "platform/desktop.h"

namespace tolmer {
namespace {

constexpr long helpOnModels = 102;

RowSelection selectionOf(const Grid& list) {
  RowSelection selection{{}, list.activeCell().row};
  for (const CellBlock& block : list.selection().blocks())
    selection.blocks.push_back({block.row, block.row2});
  return selection;
}

}  // namespace

frmModelDesign::frmModelDesign(Desktop& desktop, AnalysisState& state,
                               const DesignerSources& sources, const Window& mainWindow)
    // At the start it lies over the main window's ground, and a title bar would push it off that.
    : Window(desktop, "frmModelDesign", state.bStartingUp ? WindowStyle::bare : WindowStyle::dialog,
             "Variable Selection"),
      state_(state),
      sources_(sources),
      mainWindow_(mainWindow) {
  describeControls();
  Form_Load();
  wireEvents();
}

void frmModelDesign::wireEvents() {
  Activate = [this] { Form_Activate(); };
  QueryUnload = [this](bool& bCancel) { Form_QueryUnload(bCancel); };
  cmdDepVarSelect.Click = [this] { cmdDepVarSelect_Click(); };
  cmdDepVarDeselect.Click = [this] { cmdDepVarDeselect_Click(); };
  cmdIndVarSelect.Click = [this] { cmdIndVarSelect_Click(); };
  cmdIndVarDeselect.Click = [this] { cmdIndVarDeselect_Click(); };
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
  cmdHelp.Click = [this] { cmdHelp_Click(); };
  takeKey({keys::f1}, [this] { cmdHelp_Click(); });
  cmdShowData.Click = [this] { cmdShowData_Click(); };
  spdVarList.DblClick = [this](CellPosition) { spdVarList_DblClick(); };
  spdIndepVars.DblClick = [this](CellPosition) { cmdIndVarDeselect_Click(); };
  spdVarList.Click = [this](CellPosition) { showVarDefOfActiveRow(); };
  spdVarList.SelectionChange = [this] { showVarDefOfActiveRow(); };
}

void frmModelDesign::Form_Load() {
  if (state_.bChangeModelOnly) {
    CopyGlobalVarsToModule(copy_, state_);
    chkUseIntercept.setValue(copy_.mbUseIntercept ? 1 : 0);
  } else {
    loadDataSource();
  }
  PositionForm();
  if (copy_.mbInfoAvailable) {
    ReadVarInfo(copy_, desktop());
    DisplayComment();
    DisplayVarDef(1);
    DisplayVarDefs();
  }
  DisplayVarList();
  DisplayDepVar();
  DisplayIndepVars();
}

void frmModelDesign::loadDataSource() {
  switch (state_.iDataSource) {
    case databasePage:
      return LoadNewDatabase();
    case dataEditor:
      return LoadFromDataEditor();
    case scenarioExample:
      return state_.bUseDefaultData ? LoadDefaultExample() : LoadNewExample();
    default:
      return DimensionModelDesignerArrays(copy_);
  }
}

void frmModelDesign::LoadDefaultExample() {
  tolmer::LoadDefaultExample(copy_, sources_.scenarios, sources_.programFolder, desktop());
  displayLoadedModel();
}

void frmModelDesign::LoadNewExample() {
  tolmer::LoadNewExample(copy_, sources_.scenarios, sources_.programFolder, desktop());
  displayLoadedModel();
}

void frmModelDesign::LoadNewDatabase() {
  tolmer::LoadNewDatabase(copy_, sources_.scenarios, sources_.programFolder, desktop());
  displayLoadedModel();
}

void frmModelDesign::LoadFromDataEditor() {
  if (sources_.editor)
    tolmer::LoadFromDataEditor(copy_, sources_.editor->studentData());
  else
    DimensionModelDesignerArrays(copy_);
  displayLoadedModel();
}

void frmModelDesign::displayLoadedModel() {
  chkUseIntercept.setValue(1);
  DisplayDepVar();
  DisplayIndepVars();
}

void frmModelDesign::Form_Activate() {
  mbOKToUnload_ = false;
  cmdOK.setFocus();
}

void frmModelDesign::Form_QueryUnload(bool& bCancel) const {
  if (!mbOKToUnload_) bCancel = true;
}

void frmModelDesign::cmdDepVarSelect_Click() {
  SpecifyDepVar(copy_, selectionOf(spdVarList), desktop());
  spdVarList.unmarkBlocks();
  // A refusal leaves the earlier name on the screen, but it counts no more: OK will say so.
  copy_.mbDepVarSpecified = copy_.mbNewDepVarOK;
  if (copy_.mbNewDepVarOK) DisplayDepVar();
}

// The first variable taken so is the dependent one, as a reader of the equation would name them.
void frmModelDesign::spdVarList_DblClick() {
  if (copy_.mbDepVarSpecified)
    cmdIndVarSelect_Click();
  else
    cmdDepVarSelect_Click();
}

void frmModelDesign::cmdDepVarDeselect_Click() {
  UnSpecifyDepVar(copy_);
  DisplayDepVar();
}

void frmModelDesign::cmdIndVarSelect_Click() {
  SpecifyIndepVars(copy_, selectionOf(spdVarList));
  spdVarList.unmarkBlocks();
  DisplayIndepVars();
}

void frmModelDesign::cmdIndVarDeselect_Click() {
  UnSpecifyIndepVars(copy_, selectionOf(spdIndepVars));
  spdIndepVars.unmarkBlocks();
  DisplayIndepVars();
}

void frmModelDesign::cmdOK_Click() {
  copy_.mbUseIntercept = chkUseIntercept.value() == 1;
  CheckForChanges(copy_, state_);
  if (!copy_.mbModelHasChanged) {
    state_.bModelHasChanged = false;
  } else {
    CheckModelSpec(copy_);
    if (!copy_.mbModelOK) {
      desktop().messageBox({"Model Specification Error", copy_.mtErrorMessage,
                            MessageIcon::exclamation, MessageButtons::ok});
      return;
    }
    CopyModuleVarsToGlobal(copy_, state_);
  }
  leave();
  if (state_.bStartingUp && ShowInitialChildren) ShowInitialChildren();
}

// What Cancel means depends on why the window was opened.
void frmModelDesign::cmdCancel_Click() {
  if (state_.bChangeModelOnly) return leaveUnchanged();
  if (state_.bChangeDataOnly) return openEditorAgain();
  state_.bNewDataRequested = true;
  leave();
}

// The data came from the editor: its own Cancel ends the whole change, its OK brings new data.
void frmModelDesign::openEditorAgain() {
  EditorData* editor = sources_.editor;
  if (!editor || editor->UserCancel()) return leaveUnchanged();
  editor->ShowDataEditor();
  if (editor->UserCancel()) return leaveUnchanged();
  LoadFromDataEditor();
  DisplayVarList();
}

void frmModelDesign::leaveUnchanged() {
  state_.bModelHasChanged = false;
  leave();
}

void frmModelDesign::leave() {
  mbOKToUnload_ = true;
  hide();
}

void frmModelDesign::cmdHelp_Click() {
  desktop().showHelp({"tolmod", HelpRequest::Kind::topic, helpOnModels});
}

void frmModelDesign::cmdShowData_Click() {
  desktop().setBusyPointer(true);
  frmShowData list(desktop(), copy_);
  list.PositionControls();
  list.UpdateDisplay();
  desktop().setBusyPointer(false);
  list.showModal();
}

void frmModelDesign::showVarDefOfActiveRow() {
  if (fraVarDefs.visible() && txtVblDef.visible()) DisplayVarDef(spdVarList.selection().head().row);
}

}  // namespace tolmer
