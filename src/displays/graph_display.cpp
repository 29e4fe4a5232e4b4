#include "displays/graph_display.h"

#include <utility>

#include "platform/desktop.h"
#include "platform/graph/graph.h"
#include "platform/graph/svg_writer.h"
#include "state/model_variables.h"

namespace tolmer {

void GraphDisplay::Form_Load(Graph& graph) {
  GraphPointer = &graph;
  graph.setAccessibleName(caption());
  graph.Click = [this] { UpdateControls(); };
  graph.MouseUp = [this](MouseButton button) { Form_MouseUp(button); };
  Resize = [this] { Form_Resize(); };
}

void GraphDisplay::Form_MouseUp(MouseButton button) {
  if (state() == WindowState::maximised)
    activate();
  else
    DisplayWindow::Form_MouseUp(button);
}

void GraphDisplay::Form_Resize() {
  if (!state_.bProcessResize) return;
  FitGraphToForm();
  const UpdateLock lock(*this);
  UpdateDisplay();
}

void GraphDisplay::FitGraphToForm() {
  GraphPointer->setDrawMode(Graph::hold);
  state_.bProcessResize = false;
  GraphPointer->setPlace({0, 0, innerWidth(), innerHeight()});
  state_.bProcessResize = true;
}

void GraphDisplay::CopyGraph() {
  ClipboardContent content;
  content.svg = writeSvg(GraphPointer->picture(), GraphPointer->accessibleName(),
                         GraphPointer->accessibleDescription());
  desktop().setClipboard(content);
}

void GraphDisplay::describe(std::string text) {
  if (state_.Fit.bSingular) text = "No valid fit. " + text;
  GraphPointer->setAccessibleDescription(std::move(text));
}

bool GraphDisplay::hasFit() const { return state_.iCompletedFits > 0 && isAnalysed(state_); }

}  // namespace tolmer
