// The ways out of the editor, and the colours of its buttons.
#include <array>
#include <utility>

#include "editor/data_editor.h"
#include "platform/desktop.h"

namespace tolmer {
namespace {

constexpr Colour litGround = Colour::rgb(255, 255, 128);
constexpr ExitLimits limits{.miMinVariables = 0, .miMinObservations = 3};
constexpr int stepsOfFlash = 2;  // lit, then quiet again for as long

}  // namespace

void frmDataEditor::cmdOK_Click() {
  if (flashing_) return;
  spdData.finishEdit();
  mbUserCancel_ = false;
  desktop().setBusyPointer(true);
  ExitVerdict verdict = bfDataAreValid(sheet_, limits, desktop());
  desktop().setBusyPointer(false);
  exit_ = std::move(verdict.data);
  if (verdict.mbUserCancel) {
    mbUserCancel_ = true;
    return leave();
  }
  if (!verdict.valid || !bfOKToContinue()) return;
  flashAndLeave(cmdOK, [this] { leave(); });
}

// Whatever was saved on the way, the sheet goes back to the start of the visit.
void frmDataEditor::cmdCancel_Click() {
  if (flashing_) return;
  spdData.cancelEdit();
  if (!sheet_.changeMade()) {
    mbUserCancel_ = true;
    return leave();
  }
  if (!bfOKToContinue()) return;
  flashAndLeave(cmdCancel, [this] {
    sheet_.restoreVisitStart();
    mbUserCancel_ = true;
    leave();
  });
}

void frmDataEditor::leave() {
  autosave_.clean();
  refusal_.clear();
  resetButtons();
  mbEditorOpen_ = false;
  hide();
}

// A visible acknowledgement before the window goes.
void frmDataEditor::flashAndLeave(Button& button, std::function<void()> leave) {
  resetButtons();
  flashing_ = &button;
  flashesLeft_ = stepsOfFlash;
  afterFlash_ = std::move(leave);
  light(button);
  tmrButton_.setEnabled(false);
  tmrFlash_.setEnabled(true);
}

void frmDataEditor::tmrFlash_Tick() {
  resetButtons();
  if (--flashesLeft_ > 0) return;
  tmrFlash_.setEnabled(false);
  flashing_ = nullptr;
  std::exchange(afterFlash_, {})();
}

void frmDataEditor::light(Button& button) {
  button.setBackColour(litGround);
  button.setForeColour(colours::black);
  tmrButton_.setEnabled(true);
}

void frmDataEditor::resetButtons() {
  for (Button* button : std::array{&cmdOK, &cmdCancel, &cmdOpen, &cmdSave}) {
    button->setBackColour(colours::buttonFace);
    button->setForeColour(colours::buttonText);
  }
  tmrButton_.setEnabled(false);
}

}  // namespace tolmer
