// The ways out of the editor.
#include <utility>

#include "editor/data_editor.h"
#include "platform/desktop.h"
#include "sheet/sheet_content.h"

namespace tolmer {

bool frmDataEditor::bfOKToContinue() {
  if (!sheet_.changeMade() && !spdData.editMode()) return true;
  const Answer answer = desktop().messageBox(
      {.title = "Data Changed",
       .text = "There is unsaved data in the Data Editor. Do you want to save it?",
       .icon = MessageIcon::question,
       .buttons = MessageButtons::yesNo,
       .noLosesWork = true});
  if (answer == Answer::no) return true;
  if (!entryIsTaken() || !files_.SaveFileAs()) return false;
  lights_.flash(cmdSave);
  return true;
}

void frmDataEditor::cmdOK_Click() {
  if (lights_.areFlashing()) return;
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
  lights_.flash(cmdOK, [this] { leave(); });
}

// Whatever was saved on the way, the sheet goes back to the start of the visit. An entry that is
// refused is unsaved data like any other: it is asked about, and a no gives it up.
void frmDataEditor::cmdCancel_Click() {
  if (lights_.areFlashing()) return;
  if (spdData.commitEdit() && !sheet_.changeMade()) {
    mbUserCancel_ = true;
    return leave();
  }
  if (!bfOKToContinue()) return;
  lights_.flash(cmdCancel, [this] {
    spdData.cancelEdit();
    sheet_.restoreVisitStart();
    mbUserCancel_ = true;
    leave();
  });
}

bool frmDataEditor::mayEndProgram() {
  const bool entryIsIn = spdData.commitEdit();
  if (!entryIsIn || holdsUnsavedWork()) {
    const Answer answer = desktop().messageBox(
        {.title = "Unsaved Data",
         .text = "The data in the Data Editor have not been saved. Do you want to save them before "
                 "the program ends?",
         .icon = MessageIcon::question,
         .buttons = MessageButtons::saveDontSaveCancel});
    const bool isDone = answer == Answer::no ||
                        (answer == Answer::yes && entryIsTaken() && (files_.*savingRoutine())());
    if (!isDone) return false;
  }
  autosave_.clean();
  return true;
}

// An empty sheet that never had a file is nobody's work, whatever once stood in it.
bool frmDataEditor::holdsUnsavedWork() const {
  const bool isEmpty = sheet_.mtFileName().empty() &&
                       sheet_.content() == newContent(sheet_.observations(), sheet_.variables());
  return sheet_.unsaved() && !isEmpty;
}

void frmDataEditor::leave() {
  refusal_.clear();
  writeAside(Writing::now);
  lights_.reset();
  mbEditorOpen_ = false;
  hide();
}

}  // namespace tolmer
