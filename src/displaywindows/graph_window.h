// The windows of graph displays: one graph that fills the window.
#pragma once

#include "displaywindows/display_window.h"
#include "platform/graph/graph.h"

namespace tolmer {

class GraphWindow : public DisplayWindow {
 public:
  GraphWindow(Desktop& desktop, AnalysisState& state, DisplayHost& host, const Display& display);

  // The picture as SVG; the desktop adds a bitmap of it.
  void CopyGraph() override;
  void PositionControls() override { FitGraphToForm(); }
  void showCases() override;

 protected:
  // A maximised graph has no right-click menu.
  void Form_MouseUp(MouseButton button) override;
  void drawDisplay() override;

 private:
  // The graph fills the window; no redraw follows.
  void FitGraphToForm();
  void Form_Resize();
  std::string wordsOn(const CaseMark& mark) const;

  Graph graph_;
  GraphContent shown_;  // without its plot, which the graph has
};

// A scatter plot that is touched becomes the one that the control panel edits, and so does a new
// one.
class ScatterWindow : public GraphWindow {
 public:
  ScatterWindow(Desktop& desktop, AnalysisState& state, DisplayHost& host, const Display& display);

  void UpdateControls() override;

 protected:
  void drawDisplay() override;
};

}  // namespace tolmer
