// What all graph displays have in common: one graph that fills the window.
#pragma once

#include <string>

#include "displays/display_window.h"

namespace tolmer {

class GraphDisplay : public DisplayWindow {
 public:
  using DisplayWindow::DisplayWindow;

  // The picture as SVG; the desktop adds a bitmap of it.
  void CopyGraph() override;
  void PositionControls() override { FitGraphToForm(); }
  ShownControl shownControl() const override { return GraphPointer; }

 protected:
  // To be called by the constructor of a display, with its graph.
  void Form_Load(Graph& graph);
  // A maximised graph has no right-click menu.
  void Form_MouseUp(MouseButton button) override;
  // What a screen reader says of the graph as it is drawn now.
  void describe(std::string text);
  // Is there a fit of the present model? Otherwise the graph stays as it is.
  bool hasFit() const;

 private:
  // The graph fills the window; no redraw follows.
  void FitGraphToForm();
  void Form_Resize();
};

}  // namespace tolmer
