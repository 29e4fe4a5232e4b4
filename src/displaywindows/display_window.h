// What all windows of the quadrants have in common.
#pragma once

#include <string>
#include <vector>

#include "displays/case_selection.h"
#include "displays/display_list.h"
#include "platform/grid/grid.h"
#include "platform/window.h"

namespace tolmer {

class Graph;

// What a display asks of the shell around it.
class DisplayHost {
 public:
  virtual ~DisplayHost() = default;
  virtual void controlsDisabled() = 0;   // of the control panel: no scatter plot has the focus
  virtual void controlsEnabled() = 0;    // for the scatter plot iCurrentPlot
  virtual void axisListsDisabled() = 0;  // the two lists of the control panel alone
  virtual void scatterPlotDrawn() {}     // it shows its axes and the options as they are now
  // The right-click menu for frmCurrentDisplay.
  virtual void openDisplayMenu() = 0;
  // What is known by now of cells of the display.
  virtual std::vector<CellRemark> remarksOn(const Display&) { return {}; }
  // The cases that are selected, and to be selected in, in all displays; null for none.
  virtual CaseSelection* selectedCases() { return nullptr; }
  // Sentences on the display, to stand below a copy of it.
  virtual std::vector<std::string> notesOn(const Display&) { return {}; }
};

// Shows the content of a display, which it takes anew from the analysis state at each update. Of
// the state it writes only the guard of its own resizing, frmCurrentDisplay and, if it is a scatter
// plot, iCurrentPlot and what it has drawn.
class DisplayWindow : public Window {
 public:
  DisplayWindow(Desktop& desktop, AnalysisState& state, DisplayHost& host, const Display& display);

  // Shows the content as it is now.
  void UpdateDisplay();
  // The host knows more, or other, remarks.
  virtual void showRemarks() {}
  // Lights what stands for the selected cases.
  virtual void showCases() {}
  // Marks those cells, the first of them in sight, and takes the keyboard; where it has cells.
  virtual void showCells(const std::vector<CellPosition>&) {}
  virtual void UpdateControls() { host_.controlsDisabled(); }
  virtual void CopyGraph() = 0;
  // Fits what stands in the display to its inner size, without a redraw.
  virtual void PositionControls() = 0;

  const Display& display() const { return display_; }

  Graph* GraphPointer = nullptr;  // the graph of a graph display

 protected:
  // A release of the mouse over the display or what stands in it.
  virtual void Form_MouseUp(MouseButton button);
  // A display's own part of UpdateDisplay.
  virtual void drawDisplay() = 0;
  DisplayContent content(ViewSize size = {});
  // The user has taken those cases: with Control or Shift beside what is selected.
  void pick(const std::vector<int>& cases, ClickKeys held);

  AnalysisState& state_;
  DisplayHost& host_;
  const Display& display_;
};

}  // namespace tolmer
