#include "displays/display_window.h"

#include <utility>

namespace tolmer {

DisplayWindow::DisplayWindow(Desktop& desktop, AnalysisState& state, DisplayHost& host,
                             std::string name, std::string caption)
    : Window(desktop, std::move(name), WindowStyle::child, caption),
      state_(state),
      host_(host),
      title_(std::move(caption)) {
  QueryUnload = [this](bool& bCancel) {
    if (!state_.bAllowUnload) bCancel = true;
  };
  Click = [this] { UpdateControls(); };
  MouseUp = [this](MouseButton button) { Form_MouseUp(button); };
}

void DisplayWindow::Form_MouseUp(MouseButton button) {
  activate();
  if (button != MouseButton::right) return;
  state_.frmCurrentDisplay = this;
  host_.openDisplayMenu();
}

void DisplayWindow::UpdateDisplay() {
  setCaption(state_.Fit.bSingular ? title_ + " (no valid fit)" : title_);
  drawDisplay();
}

}  // namespace tolmer
