// What all displays of the quadrants have in common.
#pragma once

#include <string>
#include <variant>

#include "platform/window.h"
#include "state/analysis_state.h"

namespace tolmer {

class Graph;
class Grid;
class TextBox;

// The one control that fills a display; what the report reads.
using ShownControl = std::variant<const Graph*, const Grid*, const TextBox*>;

// What a display asks of the shell around it.
class DisplayHost {
 public:
  virtual ~DisplayHost() = default;
  virtual void controlsDisabled() = 0;   // of the control panel: no scatter plot has the focus
  virtual void controlsEnabled() = 0;    // for the scatter plot iCurrentPlot
  virtual void axisListsDisabled() = 0;  // the two lists of the control panel alone
  // The right-click menu for frmCurrentDisplay.
  virtual void openDisplayMenu() = 0;
};

// A display reads the analysis state and redraws itself wholly from it. Of the state it writes only
// the guard of its own resizing, frmCurrentDisplay and, if it is a scatter plot, iCurrentPlot.
class DisplayWindow : public Window {
 public:
  DisplayWindow(Desktop& desktop, AnalysisState& state, DisplayHost& host, std::string name,
                std::string caption);

  // Redraws the display wholly from the state. The title bar says so when the last fit failed,
  // since the old numbers in the record must not pass for new ones.
  void UpdateDisplay();
  virtual void UpdateControls() { host_.controlsDisabled(); }
  virtual void CopyGraph() = 0;
  // Fits what stands in the display to its inner size, without a redraw.
  virtual void PositionControls() = 0;
  virtual ShownControl shownControl() const = 0;

  Graph* GraphPointer = nullptr;  // the graph of a graph display

 protected:
  // A release of the mouse over the display or what stands in it.
  virtual void Form_MouseUp(MouseButton button);
  // A display's own part of UpdateDisplay.
  virtual void drawDisplay() = 0;

  AnalysisState& state_;
  DisplayHost& host_;

 private:
  std::string title_;
};

}  // namespace tolmer
