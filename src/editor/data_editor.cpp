#include "editor/data_editor.h"

#include <stdexcept>
#include <utility>

#include "base/file_io.h"
#include "editor/instructions.h"
#include "editor/numeric_format.h"
#include "editor/sort_options.h"
#include "platform/desktop.h"
#include "sheet/sheet_content.h"

namespace tolmer {
namespace {}  // namespace

frmDataEditor::frmDataEditor(Desktop& desktop, EditorPlaces places)
    : SheetWindow(desktop),
      files_(desktop, sheet_, std::move(places.program)),
      autosave_(places.aside, [&desktop] { return desktop.timers().now(); }),
      lights_(desktop.timers(), {&cmdOpen, &cmdSave, &cmdOK, &cmdCancel}),
      tmrAutosave_(desktop.timers(), "tmrAutosave", Autosave::lookInterval) {
  setSizable(true);
  setMenuBar(&menu.bar);
  describeControls();
  wireMenu();
  wireOptionsAndHelp();
  wireCellMenu();
  wireControls();
}

// However the program ends, what is unsaved stays aside unless the user has said otherwise.
frmDataEditor::~frmDataEditor() { writeAside(Writing::now); }

void frmDataEditor::describeControls() {
  cmdOK.setTip("Exit Editor and Use Data");
  cmdCancel.setTip("Exit Editor and Discard Data");
  cmdOpen.setTip("Open file containing ZM data");
  cmdSave.setTip("Save Data");
  cmdClose.setTip("Close Instructions");
  txtTitle.setAccessibleName("Title");
  txtHelp.setAccessibleName("Instructions");
  spdData.setAccessibleName("Data");
  txtHelp.setMultiLine(true);
  txtHelp.setReadOnly(true);
  txtHelp.setVisible(false);
  cmdClose.setVisible(false);
  lblStatus.setUsesMnemonic(false);
  lblTitle.setUsesMnemonic(true);
  menu.mnuEditTypingReplaces.setCheckable(true);
  // No action is attached to the widths: columns are drawn wider by the mouse.
  menu.mnuOptionWidth.setEnabled(false);
  menu.mnuFileSave.setEnabled(false);
}

void frmDataEditor::wireMenu() {
  for (MenuItem* list : {&menu.mnuFile, &menu.mnuEdit, &menu.mnuOption})
    list->Click = [this] { spdData.commitEdit(); };
  menu.mnuFileNew.Click = [this] { mnuFileNew_Click(); };
  menu.mnuFileOpen.Click = [this] { cmdOpen_Click(); };
  menu.mnuFileSave.Click = [this] { save(&DataSetFiles::SaveCurrentFile); };
  menu.mnuFileSaveAs.Click = [this] { save(&DataSetFiles::SaveFileAs); };
  menu.mnuFileExitUse.Click = [this] { cmdOK_Click(); };
  menu.mnuFileExitDiscard.Click = [this] { cmdCancel_Click(); };
  menu.mnuEditUndo.Click = [this] { undoOrRedo(true); };
  menu.mnuEditRedo.Click = [this] { undoOrRedo(false); };
  menu.mnuEditCut.Click = [this] { command(GridCommand::cut); };
  menu.mnuEditCopy.Click = [this] { command(GridCommand::copy); };
  menu.mnuEditPaste.Click = [this] { command(GridCommand::paste); };
  menu.mnuEditInsertRow.Click = [this] { insertOrDeleteRows(true); };
  menu.mnuEditDeleteRow.Click = [this] { insertOrDeleteRows(false); };
  menu.mnuEditFillDown.Click = [this] { fillDown(); };
  menu.mnuEditFillSeries.Click = [this] { fillSeries(); };
  menu.mnuEditFind.Click = [this] { find(false); };
  menu.mnuEditReplace.Click = [this] { find(true); };
  menu.mnuEditTypingReplaces.Click = [this] {
    spdData.setEditModeReplace(!spdData.editModeReplace());
    menu.mnuEditTypingReplaces.setChecked(spdData.editModeReplace());
  };
}

void frmDataEditor::wireOptionsAndHelp() {
  menu.mnuOptionFormatStd.Click = [this] { showDialog(frmNumericFormat(desktop(), sheet_, true)); };
  menu.mnuOptionFormatCol.Click = [this] {
    showDialog(frmNumericFormat(desktop(), sheet_, false));
  };
  menu.mnuOptionSort.Click = [this] { showDialog(frmSortOptions(desktop(), sheet_)); };
  menu.mnuOptionLabel.Click = [this] { editLabel(); };
  const auto help = [this](HelpRequest::Kind kind) {
    desktop().showHelp({.file = "dataedit", .kind = kind});
  };
  menu.mnuHelpContents.Click = [help] { help(HelpRequest::Kind::contents); };
  menu.mnuHelpSearch.Click = [help] { help(HelpRequest::Kind::search); };
  menu.mnuHelpUsing.Click = [help] { help(HelpRequest::Kind::usingHelp); };
  menu.mnuHelpInstructText.Click = [this] { showInstructions(0); };
  menu.mnuHelpInstructSheet.Click = [this] { showInstructions(1); };
}

// The same as in the menu above the sheet.
void frmDataEditor::wireCellMenu() {
  for (const auto& [entry, like] : {std::pair{&cellMenu.mnuCellsCut, &menu.mnuEditCut},
                                    {&cellMenu.mnuCellsCopy, &menu.mnuEditCopy},
                                    {&cellMenu.mnuCellsPaste, &menu.mnuEditPaste},
                                    {&cellMenu.mnuCellsInsertRow, &menu.mnuEditInsertRow},
                                    {&cellMenu.mnuCellsDeleteRow, &menu.mnuEditDeleteRow},
                                    {&cellMenu.mnuCellsFillDown, &menu.mnuEditFillDown},
                                    {&cellMenu.mnuCellsFillSeries, &menu.mnuEditFillSeries},
                                    {&cellMenu.mnuCellsSort, &menu.mnuOptionSort}}) {
    entry->setShortcut(like->shortcut());
    entry->Click = [same = like] { same->click(); };
  }
  cellMenu.mnuCellsClear.setShortcut({.code = keys::deleteKey});
  cellMenu.mnuCellsClear.Click = [this] { command(GridCommand::erase); };
}

void frmDataEditor::wireControls() {
  Activate = [this] { Form_Activate(); };
  Resize = [this] { placeControls(); };
  // The close box is Cancel: nothing is lost by it that Cancel would keep.
  QueryUnload = [this](bool& bCancel) {
    bCancel = true;
    cmdCancel_Click();
  };
  Dropped = [this](const DroppedItems& items) {
    if (const auto file = droppedFile(items, desktop())) openDropped(*file);
  };
  declareKeys();
  txtTitle.Changed = [this] {
    if (txtTitle.text() != sheet_.title()) sheet_.setTitle(txtTitle.text());
  };
  txtTitle.LostFocus = [this] { sheet_.markChanged(); };
  cmdOpen.Click = [this] { cmdOpen_Click(); };
  cmdSave.Click = [this] { cmdSave_Click(); };
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
  cmdClose.Click = [this] { closeInstructions(); };
  tmrAutosave_.Tick = [this] { tmrAutosave_Tick(); };
}

void frmDataEditor::ShowDataEditor() {
  if (!isSetUp_) SetupEditor();
  showModal();
  tmrAutosave_.setEnabled(false);
}

// A visit begins; coming back from a dialog does not begin another.
void frmDataEditor::Form_Activate() {
  if (mbEditorOpen_) return;
  mbEditorOpen_ = true;
  mbUserCancel_ = false;
  sheet_.startVisit();
  if (sheet_.unsaved()) autosave_.changed();  // since an earlier visit
  spdData.setFocus();
  showStatus();
  tmrAutosave_.setEnabled(autosave_.isOn());
  beginFirstVisit();
  tookOver_ = toTakeOver_.has_value();
  if (const auto taken = std::exchange(toTakeOver_, {})) {
    sheet_.takeOver(taken->content, taken->name);
    resetGrid();
    spdData.setActiveCell({2, 2});
  }
  if (const auto file = std::exchange(toOpen_, {})) openDropped(*file);
}

void frmDataEditor::beginFirstVisit() {
  if (std::exchange(activatedOnce_, true)) return;
  tellOptionalVariable();
  offerLostWork();
}

void frmDataEditor::tellOptionalVariable() {
  if (sheet_.variables() != 3 && sheet_.variables() != 4) return;
  desktop().messageBox({"Var 3 is OPTIONAL",
                        "Var 3 is OPTIONAL. If you do not enter data into Var 3 and you "
                        "later select an option that requires this variable you will be "
                        "prompted on what to do.",
                        MessageIcon::information});
}

void frmDataEditor::declareKeys() {
  takeKey({keys::f1}, [this] { menu.mnuHelpContents.click(); });
  takeKey({.code = 'S', .shift = Held::no, .control = Held::yes}, [this] { cmdSave_Click(); });
  takeKey(
      {keys::escape}, [this] { closeInstructions(); }, [this] { return txtHelp.visible(); });
  takeKey(
      {keys::escape}, [this] { giveUpEntry(); },
      [this] { return spdData.editMode() && !spdData.hasFocus(); });
}

// From wherever the focus has gone while the entry stayed open.
void frmDataEditor::giveUpEntry() {
  spdData.setFocus();
  spdData.pressKey({.code = keys::escape});
}

void frmDataEditor::showInstructions(int index) {
  txtHelp.setText(instructions(index));
  txtHelp.setVisible(true);
  cmdClose.setVisible(true);
  txtHelp.setFocus();  // where keys scroll
}

void frmDataEditor::closeInstructions() {
  txtHelp.setVisible(false);
  cmdClose.setVisible(false);
  spdData.setFocus();
}

void frmDataEditor::SetupEditor() {
  tfFileFilter();
  isSetUp_ = true;
  sheet_.Changed = nullptr;
  sheet_.startOver(setup_.MaxObservations, setup_.NumberVariables);
  InitialiseGrid();
  sheet_.Changed = [this](const SheetChange& change) {
    sheet_.unsaved() ? autosave_.changed() : autosave_.clean();
    follow(change);
  };
}

std::string frmDataEditor::tfFileFilter() {
  std::string filter = tolmer::tfFileFilter(setup_.NumberVariables, desktop());
  if (filter.empty()) desktop().endProgram(1);
  return filter;
}

void frmDataEditor::checkVariable(int iVarNum) const {
  if (iVarNum < 0 || iVarNum > editorVariables) throw std::out_of_range("variable of the editor");
}

std::string frmDataEditor::VarHeader(int iVarNum) const {
  checkVariable(iVarNum);
  return iVarNum <= sheet_.variables() ? sheet_.heading(iVarNum) : std::string();
}

void frmDataEditor::setVarHeader(int iVarNum, const std::string& name) {
  checkVariable(iVarNum);
  if (iVarNum <= sheet_.variables()) sheet_.enter(0, iVarNum, name);
}

Int16 frmDataEditor::NumberDecimals(int iVarNum) const {
  checkVariable(iVarNum);
  return iVarNum <= sheet_.variables() ? sheet_.decimals(iVarNum) : Int16{0};
}

void frmDataEditor::setNumberDecimals(int iVarNum, Int16 digits) {
  checkVariable(iVarNum);
  if (iVarNum >= 1 && iVarNum <= sheet_.variables()) sheet_.setDecimals(iVarNum, digits);
  sheet_.markChanged();
}

std::string frmDataEditor::DataLabel(int iOb) const { return exit_.mtLabel.at(iOb); }

double frmDataEditor::DataValue(int iVar, int iOb) const {
  if (iVar < 0 || iVar > sheet_.variables() || iOb < 1 || iOb > exit_.miCompleteObs)
    throw std::out_of_range("DataValue");
  return exit_.mdValue(iOb, iVar);
}

void frmDataEditor::mnuFileNew_Click() {
  if (!entryIsTaken()) return;
  if (replacingLosesData() &&
      desktop().messageBox({"Data Changed",
                            "The current data has not been saved. Do you want to clear the "
                            "current data anyway?",
                            MessageIcon::question, MessageButtons::okCancel}) == Answer::cancel)
    return;
  sheet_.clearAll();
  resetGrid();
}

void frmDataEditor::cmdOpen_Click() {
  open([this] { return files_.open(); });
}

void frmDataEditor::openDropped(const DroppedFile& file) {
  bool opened = false;
  open([&] {
    OpenOutcome outcome = files_.open(file.name);
    opened = outcome.opened;
    return outcome;
  });
  if (!opened || file.notice.empty()) return;
  notice_ = file.notice;
  showStatus();
}

void frmDataEditor::open(const std::function<OpenOutcome()>& routine) {
  if (!entryIsTaken()) return;
  if (replacingLosesData() &&
      desktop().messageBox({"Data Changed",
                            "The current data has not been saved. Do you want to load new "
                            "data anyway?",
                            MessageIcon::question, MessageButtons::yesNo}) == Answer::no)
    return;
  lights_.light(cmdOpen);
  OpenOutcome outcome = routine();
  if (outcome.opened) {
    resetGrid();
    return spdData.setActiveCell({1, 1});
  }
  if (outcome.reason.empty()) return;
  refusal_ = std::move(outcome.reason);
  showStatus();
}

void frmDataEditor::cmdSave_Click() { save(savingRoutine()); }

void frmDataEditor::save(bool (DataSetFiles::*routine)()) {
  if (entryIsTaken() && (files_.*routine)()) lights_.light(cmdSave);
}

void frmDataEditor::cmdOK_Click() {
  if (!entryIsTaken()) return;
  mbUserCancel_ = false;
  desktop().setBusyPointer(true);
  ExitVerdict verdict = bfDataAreValid(sheet_, setup_.limits, desktop());
  desktop().setBusyPointer(false);
  exit_ = std::move(verdict.data);
  if (verdict.mbUserCancel) {
    mbUserCancel_ = true;
    return leave();
  }
  if (!verdict.valid || !bfOKToContinue()) return;
  flashAndLeave(cmdOK);
}

// Whatever was saved on the way, the sheet goes back to the start of the visit. An entry that is
// refused is unsaved data like any other: it is asked about, and a no gives it up.
void frmDataEditor::cmdCancel_Click() {
  if (spdData.commitEdit() && !sheet_.changeMade()) {
    if (tookOver_) sheet_.restoreVisitStart();
    mbUserCancel_ = true;
    return leave();
  }
  if (!bfOKToContinue()) return;
  flashAndLeave(cmdCancel, [this] {
    spdData.cancelEdit();
    sheet_.restoreVisitStart();
    mbUserCancel_ = true;
  });
}

// What was checked and asked about stands: nothing more goes into the sheet.
void frmDataEditor::flashAndLeave(Button& button, std::function<void()> last) {
  setTakesInput(false);
  lights_.flash(button, [this, last = std::move(last)] {
    raise(last);
    leave();
  });
}

void frmDataEditor::leave() {
  refusal_.clear();
  writeAside(Writing::now);
  lights_.reset();
  mbEditorOpen_ = false;
  setTakesInput(true);
  hide();
}

}  // namespace tolmer
