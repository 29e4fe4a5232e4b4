// Whole data sets: what happens to the data in the sheet, and what shows it.
#include <utility>

#include "editor/data_editor.h"
#include "platform/desktop.h"

namespace tolmer {

void frmDataEditor::mnuFileNew_Click() {
  if (!entryIsTaken()) return;
  if (replacingLosesData() &&
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
  if (!entryIsTaken()) return;
  if (replacingLosesData() &&
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

void frmDataEditor::cmdSave_Click() { save(savingRoutine()); }

void frmDataEditor::save(bool (DataSetFiles::*routine)()) {
  if (entryIsTaken() && (files_.*routine)()) lights_.light(cmdSave);
}

}  // namespace tolmer
