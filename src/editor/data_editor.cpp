#include "editor/data_editor.h"

#include <ctime>
#include <stdexcept>
#include <utility>

#include "editor/numeric_format.h"
#include "editor/sort_options.h"
#include "platform/desktop.h"

namespace tolmer {
namespace {

constexpr int lookInterval = 1000;  // milliseconds between looks whether to write the work aside
constexpr int colourTime = 1000;    // a colour that follows the mouse fades
constexpr int flashTime = 500;

KeyPress withControl(int key) { return {.code = key, .control = true}; }

std::string timeOf(std::int64_t seconds) {
  const auto time = static_cast<std::time_t>(seconds);
  std::tm parts{};
  localtime_r(&time, &parts);
  std::string text(32, '\0');
  text.resize(std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &parts));
  return text;
}

}  // namespace

frmDataEditor::frmDataEditor(Desktop& desktop, EditorFolders folders)
    : Window(desktop, "frmDataEditor", WindowStyle::dialog, "Data Editor"),
      folders_(std::move(folders)),
      symbolFiles_(desktop, files_),
      autosave_(folders_.autosave, [&desktop] { return desktop.timers().now(); }),
      tmrButton_(desktop.timers(), "tmrButton", colourTime),
      tmrFlash_(desktop.timers(), "tmrFlash", flashTime),
      tmrAutosave_(desktop.timers(), "tmrAutosave", lookInterval) {
  setSizable(true);
  setMenuBar(&menu.bar);
  describeControls();
  wireMenu();
  wireControls();
  InitialiseGrid();
  sheet_.Changed = [this](const SheetChange& change) { follow(change); };
  sheet_.startVisit();
}

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
  menu.mnuEditTypingReplaces.setChecked(true);
  // No action is attached to the widths: columns are drawn wider by the mouse.
  menu.mnuOptionWidth.setEnabled(false);
  menu.mnuFileSave.setEnabled(false);
  menu.mnuFileNew.setShortcut(withControl('N'));
  menu.mnuFileOpen.setShortcut(withControl('O'));
  menu.mnuFileSaveAs.setShortcut({.code = 'S', .shift = true, .control = true});
  menu.mnuEditUndo.setShortcut(withControl('Z'));
  menu.mnuEditRedo.setShortcut(withControl('Y'));
  menu.mnuEditCut.setShortcut(withControl('X'));
  menu.mnuEditCopy.setShortcut(withControl('C'));
  menu.mnuEditPaste.setShortcut(withControl('V'));
}

void frmDataEditor::wireMenu() {
  for (MenuItem* list : {&menu.mnuFile, &menu.mnuEdit, &menu.mnuOption})
    list->Click = [this] { spdData.finishEdit(); };
  menu.mnuFileNew.Click = [this] { mnuFileNew_Click(); };
  menu.mnuFileOpen.Click = [this] { cmdOpen_Click(); };
  menu.mnuFileSave.Click = [this] { saveAndLight([this] { SaveCurrentFile(); }); };
  menu.mnuFileSaveAs.Click = [this] { saveAndLight([this] { SaveFileAs(); }); };
  menu.mnuFileExitUse.Click = [this] { cmdOK_Click(); };
  menu.mnuFileExitDiscard.Click = [this] { cmdCancel_Click(); };
  menu.mnuEditUndo.Click = [this] { undoOrRedo(true); };
  menu.mnuEditRedo.Click = [this] { undoOrRedo(false); };
  menu.mnuEditCut.Click = [this] { command(GridCommand::cut); };
  menu.mnuEditCopy.Click = [this] { command(GridCommand::copy); };
  menu.mnuEditPaste.Click = [this] { command(GridCommand::paste); };
  menu.mnuEditInsertRow.Click = [this] { insertOrDeleteRows(true); };
  menu.mnuEditDeleteRow.Click = [this] { insertOrDeleteRows(false); };
  menu.mnuEditTypingReplaces.Click = [this] {
    spdData.setEditModeReplace(!spdData.editModeReplace());
    menu.mnuEditTypingReplaces.setChecked(spdData.editModeReplace());
  };
  menu.mnuOptionFormatStd.Click = [this] {
    frmNumericFormat dialog(desktop(), sheet_, true);
    showDialog(dialog);
  };
  menu.mnuOptionFormatCol.Click = [this] {
    frmNumericFormat dialog(desktop(), sheet_, false);
    showDialog(dialog);
  };
  menu.mnuOptionSort.Click = [this] {
    frmSortOptions dialog(desktop(), sheet_);
    showDialog(dialog);
  };
  const auto help = [this](HelpRequest::Kind kind) {
    desktop().showHelp({.file = "dataedit", .kind = kind});
  };
  menu.mnuHelpContents.Click = [help] { help(HelpRequest::Kind::contents); };
  menu.mnuHelpSearch.Click = [help] { help(HelpRequest::Kind::search); };
  menu.mnuHelpUsing.Click = [help] { help(HelpRequest::Kind::usingHelp); };
  menu.mnuHelpInstructText.Click = [this] { showInstructions(0); };
  menu.mnuHelpInstructSheet.Click = [this] { showInstructions(1); };
}

void frmDataEditor::wireControls() {
  Activate = [this] { Form_Activate(); };
  Resize = [this] { placeControls(); };
  // The close box is Cancel: nothing is lost by it that Cancel would keep.
  QueryUnload = [this](bool& bCancel) {
    bCancel = true;
    if (!flashing_) cmdCancel_Click();
  };
  KeyDown = [this](const KeyPress& key, bool& taken) { taken = Form_KeyDown(key); };
  txtTitle.Changed = [this] {
    if (txtTitle.text() != sheet_.title()) sheet_.setTitle(txtTitle.text());
  };
  txtTitle.LostFocus = [this] { sheet_.markChanged(); };
  spdData.AskContent = [this](CellPosition cell, std::string& text) {
    text = sheet_.editText(cell.row - 1, cell.col - 1);
  };
  spdData.EditDone = [this](CellPosition cell, const std::string& text, bool& bAccepted) {
    spdData_EditDone(cell, text, bAccepted);
  };
  spdData.LeaveCell = [this](CellPosition, CellPosition) {
    refusal_.clear();
    showStatus();
  };
  spdData.SelectionChange = [this] { showStatus(); };
  spdData.Command = [this](GridCommand what) { command(what); };
  cmdOpen.Click = [this] { cmdOpen_Click(); };
  cmdSave.Click = [this] { cmdSave_Click(); };
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
  cmdClose.Click = [this] { closeInstructions(); };
  tmrButton_.Tick = [this] { resetButtons(); };
  tmrFlash_.Tick = [this] { tmrFlash_Tick(); };
  tmrAutosave_.Tick = [this] { tmrAutosave_Tick(); };
}

void frmDataEditor::ShowDataEditor() {
  showModal();
  tmrAutosave_.setEnabled(false);
}

// A visit begins; coming back from a dialog does not begin another.
void frmDataEditor::Form_Activate() {
  if (mbEditorOpen_) return;
  mbEditorOpen_ = true;
  mbUserCancel_ = false;
  sheet_.startVisit();
  spdData.setFocus();
  showStatus();
  tmrAutosave_.setEnabled(!folders_.autosave.empty());
  if (!std::exchange(activatedOnce_, true)) offerLostWork();
}

bool frmDataEditor::Form_KeyDown(const KeyPress& key) {
  if (key.code == keys::f1)
    desktop().showHelp({.file = "dataedit", .kind = HelpRequest::Kind::contents});
  else if (key.control && !key.shift && key.code == 'S')
    cmdSave_Click();
  else
    return false;
  return true;
}

// What a crash or a kill of an earlier program left behind.
void frmDataEditor::offerLostWork() {
  if (folders_.autosave.empty()) return;
  for (LostWork& lost : findLostWork(folders_.autosave)) {
    const auto content = lost.content();
    if (!content) continue;
    const Answer answer =
        desktop().messageBox({.title = "Unsaved Data",
                              .text = "The program ended before its data were saved (" +
                                      timeOf(lost.written()) + "). Do you want to bring them back?",
                              .icon = MessageIcon::question,
                              .buttons = MessageButtons::yesNo});
    if (answer == Answer::no) {
      lost.discard();
      continue;
    }
    sheet_.replaceWith(content->sheet, content->from);
    sheet_.markChanged();
    autosave_.adopt(std::move(lost));
    return;
  }
}

void frmDataEditor::tmrAutosave_Tick() {
  const auto failure = autosave_.poll([this] { return sheet_.content(); }, sheet_.mtFileName());
  if (!failure) return;
  refusal_ = "The work could not be written aside: " + failure->message();
  showStatus();
}

std::string frmDataEditor::DataLabel(int iOb) const {
  return exit_.mtLabel.at(static_cast<std::size_t>(iOb));
}

double frmDataEditor::DataValue(int iVar, int iOb) const {
  if (iVar < 0 || iVar > sheet_.variables() || iOb < 1 || iOb > exit_.miCompleteObs)
    throw std::out_of_range("DataValue");
  return exit_.mdValue(iOb, iVar);
}

std::string frmDataEditor::VarHeader(int iVarNum) const {
  if (iVarNum < 0 || iVarNum > sheet_.variables()) throw std::out_of_range("VarHeader");
  return sheet_.heading(iVarNum);
}

}  // namespace tolmer
