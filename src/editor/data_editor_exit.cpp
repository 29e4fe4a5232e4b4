// The ways out of the editor.
#include <utility>

#include "editor/data_editor.h"
#include "platform/desktop.h"

namespace tolmer {

bool frmDataEditor::bfOKToContinue() {
  if (!sheet_.changeMade()) return true;
  const Answer answer = desktop().messageBox(
      {.title = "Data Changed",
       .text = "There is unsaved data in the Data Editor. Do you want to save it?",
       .icon = MessageIcon::question,
       .buttons = MessageButtons::yesNo,
       .noLosesWork = true});
  if (answer == Answer::no) return true;
  if (!files_.SaveFileAs()) return false;
  lights_.flash(cmdSave);
  return true;
}

void frmDataEditor::cmdOK_Click() {
  if (lights_.areFlashing()) return;
  spdData.finishEdit();
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

// Whatever was saved on the way, the sheet goes back to the start of the visit.
void frmDataEditor::cmdCancel_Click() {
  if (lights_.areFlashing()) return;
  spdData.finishEdit();
  if (!sheet_.changeMade()) {
    mbUserCancel_ = true;
    return leave();
  }
  if (!bfOKToContinue()) return;
  lights_.flash(cmdCancel, [this] {
    sheet_.restoreVisitStart();
    mbUserCancel_ = true;
    leave();
  });
}

void frmDataEditor::leave() {
  autosave_.clean();
  refusal_.clear();
  lights_.reset();
  mbEditorOpen_ = false;
  hide();
}

}  // namespace tolmer
