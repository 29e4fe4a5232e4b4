// The ways out of the editor, and the colours of its buttons.
#include <array>
#include <utility>

#include "editor/data_editor.h"
#include "platform/desktop.h"

namespace tolmer {
namespace {

constexpr Colour litGround = Colour::rgb(255, 255, 128);

}  // namespace

void frmDataEditor::cmdOK_Click() {
  if (!flashes_.empty()) return;
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
  flashAndLeave(cmdOK, [this] { leave(); });
}

// Whatever was saved on the way, the sheet goes back to the start of the visit.
void frmDataEditor::cmdCancel_Click() {
  if (!flashes_.empty()) return;
  spdData.finishEdit();
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

// A visible acknowledgement: lit, then quiet again for as long, one button after the other.
void frmDataEditor::flash(Button& button) {
  flashes_.push_back(&button);
  if (flashes_.size() > 1) return;
  resetButtons();
  light(button);
  flashIsQuiet_ = false;
  tmrFlash_.setEnabled(true);
}

void frmDataEditor::flashAndLeave(Button& button, std::function<void()> leave) {
  afterFlash_ = std::move(leave);
  flash(button);
}

void frmDataEditor::tmrFlash_Tick() {
  resetButtons();
  flashIsQuiet_ = !flashIsQuiet_;
  if (flashIsQuiet_) return;
  flashes_.pop_front();
  if (!flashes_.empty()) return light(*flashes_.front());
  tmrFlash_.setEnabled(false);
  raise(std::exchange(afterFlash_, {}));
}

// A hint of colour follows the mouse and fades.
void frmDataEditor::lightUnderMouse(Button& button) {
  if (!flashes_.empty()) return;
  if (button.backColour() != litGround) resetButtons();
  light(button);
}

void frmDataEditor::light(Button& button) {
  button.setBackColour(litGround);
  button.setForeColour(colours::black);
  tmrButton_.setEnabled(flashes_.empty());
}

void frmDataEditor::resetButtons() {
  for (Button* button : std::array{&cmdOK, &cmdCancel, &cmdOpen, &cmdSave}) {
    button->setBackColour(colours::buttonFace);
    button->setForeColour(colours::buttonText);
  }
  tmrButton_.setEnabled(false);
}

}  // namespace tolmer
