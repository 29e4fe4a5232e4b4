#include "displaywindows/display_window.h"

#include "platform/desktop.h"

namespace tolmer {

DisplayWindow::DisplayWindow(Desktop& desktop, AnalysisState& state, DisplayHost& host,
                             const Display& display)
    : Window(desktop, display.form, WindowStyle::child, display.caption),
      state_(state),
      host_(host),
      display_(display) {
  QueryUnload = [this](bool& bCancel) {
    if (!state_.bAllowUnload) bCancel = true;
  };
  Click = [this] { UpdateControls(); };
  MouseUp = [this](MouseButton button) { Form_MouseUp(button); };
  // The keys for context menus do what the right button does.
  for (const KeyChord& key :
       {KeyChord{keys::menu}, KeyChord{.code = keys::f10, .shift = Held::yes}})
    takeKey(key, [this] { Form_MouseUp(MouseButton::right); });
}

void DisplayWindow::Form_MouseUp(MouseButton button) {
  activate();
  if (button != MouseButton::right) return;
  state_.frmCurrentDisplay = this;
  host_.openDisplayMenu();
}

void DisplayWindow::UpdateDisplay() {
  setCaption(titleOf(display_, state_));
  drawDisplay();
}

void DisplayWindow::pick(const std::vector<int>& cases, ClickKeys held) {
  CaseSelection* selection = host_.selectedCases();
  if (!selection) return;
  if (held.control)
    selection->toggle(cases);
  else if (held.shift)
    selection->add(cases);
  else
    selection->select(cases);
}

DisplayContent DisplayWindow::content(ViewSize size) {
  return contentOf(display_, state_, size, desktop());
}

}  // namespace tolmer
