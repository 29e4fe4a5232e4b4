// The list of all data: what the model designer holds, to be looked at before a model is chosen.
#pragma once

#include "data/working_copy.h"
#include "platform/grid/grid.h"
#include "platform/window.h"

namespace tolmer {

// A read-only table of cases and variables; the case numbers and labels stay in place when it is
// scrolled. It lives for one look and is closed by its close box or Escape; Ctrl+C copies it.
class frmShowData : public Window {
 public:
  // The working copy outlives the window.
  frmShowData(Desktop& desktop, const WorkingCopy& copy);

  // As large as a list may become: 0.8 of the screen in both directions.
  void PositionControls();
  // Fills the table and narrows the window to it.
  void UpdateDisplay();
  // The whole table to the clipboard.
  void CopyGraph();

  Grid spdShowData{this, "spdShowData"};

 private:
  Sheet content() const;
  void fitColumnsAndRows();
  void fitWindow();
  int leftColumns() const { return copy_.mbLabeledData ? 2 : 1; }

  const WorkingCopy& copy_;
};

}  // namespace tolmer
