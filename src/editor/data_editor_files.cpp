// Whole data sets: what happens to the data in the sheet, and what shows it.
#include <utility>

#include "editor/data_editor.h"
#include "platform/desktop.h"

namespace tolmer {

void frmDataEditor::mnuFileNew_Click() {
  spdData.finishEdit();
  if (sheet_.changeMade() &&
      desktop().messageBox({.title = "Data Changed",
                            .text = "The current data has not been saved. Do you want to clear the "
                                    "current data anyway?",
                            .icon = MessageIcon::question,
                            .buttons = MessageButtons::okCancel}) == Answer::cancel)
    return;
  sheet_.clearAll();
  resetGrid();
}

void frmDataEditor::cmdOpen_Click() {
  spdData.finishEdit();
  if (sheet_.changeMade() &&
      desktop().messageBox({.title = "Data Changed",
                            .text = "The current data has not been saved. Do you want to load new "
                                    "data anyway?",
                            .icon = MessageIcon::question,
                            .buttons = MessageButtons::yesNo}) == Answer::no)
    return;
  lights_.light(cmdOpen);
  OpenOutcome outcome = files_.open();
  if (outcome.opened) {
    resetGrid();
    return spdData.setActiveCell({1, 1});
  }
  if (outcome.reason.empty()) return;
  refusal_ = std::move(outcome.reason);
  showStatus();
}

void frmDataEditor::cmdSave_Click() {
  save(menu.mnuFileSave.enabled() ? &DataSetFiles::SaveCurrentFile : &DataSetFiles::SaveFileAs);
}

void frmDataEditor::save(bool (DataSetFiles::*routine)()) {
  spdData.finishEdit();
  if ((files_.*routine)()) lights_.light(cmdSave);
}

}  // namespace tolmer
