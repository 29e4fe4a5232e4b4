#include "displaywindows/graph_window.h"

#include <utility>

#include "platform/desktop.h"
#include "platform/graph/svg_writer.h"

namespace tolmer {

GraphWindow::GraphWindow(Desktop& desktop, AnalysisState& state, DisplayHost& host,
                         const Display& display)
    : DisplayWindow(desktop, state, host, display), graph_(this, display.control) {
  GraphPointer = &graph_;
  graph_.setAccessibleName(display.caption);
  graph_.Click = [this] {
    if (display_.keepsPanel)
      host_.axisListsDisabled();
    else
      UpdateControls();
  };
  graph_.MouseUp = [this](MouseButton button) { Form_MouseUp(button); };
  Resize = [this] { Form_Resize(); };
}

void GraphWindow::Form_MouseUp(MouseButton button) {
  if (state() == WindowState::maximised)
    activate();
  else
    DisplayWindow::Form_MouseUp(button);
}

void GraphWindow::Form_Resize() {
  if (!state_.bProcessResize) return;
  FitGraphToForm();
  const UpdateLock lock(*this);
  UpdateDisplay();
}

void GraphWindow::FitGraphToForm() {
  state_.bProcessResize = false;
  graph_.setPlace({0, 0, innerWidth(), innerHeight()});
  state_.bProcessResize = true;
}

void GraphWindow::drawDisplay() {
  if (!hasFit(state_)) return;
  auto drawn = std::get<GraphContent>(content(graph_.viewSize()));
  graph_.show(std::move(drawn.plot));
  graph_.setAccessibleDescription(std::move(drawn.description));
}

void GraphWindow::CopyGraph() {
  ClipboardContent copy;
  copy.svg = writeSvg(graph_.plot().picture(), display_.caption, graph_.accessibleDescription());
  desktop().setClipboard(copy);
}

ScatterWindow::ScatterWindow(Desktop& desktop, AnalysisState& state, DisplayHost& host,
                             const Display& display)
    : GraphWindow(desktop, state, host, display) {
  Activate = [this] { UpdateControls(); };
  ScatterWindow::UpdateControls();
}

void ScatterWindow::UpdateControls() {
  state_.iCurrentPlot = static_cast<Int16>(display_.id.iIndex);
  host_.controlsEnabled();
}

}  // namespace tolmer
