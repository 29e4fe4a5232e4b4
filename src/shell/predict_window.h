// New cases beside the work, and what the model says of them.
#pragma once

#include <functional>
#include <string>

#include "platform/buttons.h"
#include "platform/fields.h"
#include "platform/grid/edit_grid.h"
#include "platform/labels.h"
#include "platform/window.h"
#include "shell/new_cases_sheet.h"

namespace tolmer {

// A window of its own that waits for nobody. Row r and column c of the grid are row r - 1 and
// column c - 1 of the sheet of new cases; behind the predictors stand the figures.
class frmPredict : public Window {
 public:
  frmPredict(Desktop& desktop, const AnalysisState& state);

  // As NewCasesSheet::follow wants it; asked when the window is on the screen.
  std::function<const Examination*()> examination;

  // Another fit stands, or more is known of it.
  void follow();
  // Comes to the screen, or to its front.
  void open();

  NewCasesSheet& cases() { return cases_; }

  Label lblModel{this, "lblModel"};
  EditGrid spdCases{this, "spdCases"};
  Label lblStatus{this, "lblStatus"};
  TextBox txtWords{this, "txtWords"};
  Label lblLimits{this, "lblLimits",
                  "Limits are of 95 per cent: Mean for the mean of all such cases, New for a "
                  "single one."};
  Label lblCase{this, "lblCase", "&Number of a case of the data:"};
  NumberBox nbrCase{this, "nbrCase"};
  Button cmdAdd{this, "cmdAdd", "&Add"};
  Button cmdCopy{this, "cmdCopy", "C&opy"};
  Button cmdHelp{this, "cmdHelp", "&Help"};
  Button cmdClose{this, "cmdClose", "Close"};

 private:
  void wire();
  void wireGrid();
  void placeControls();
  void place();

  void followFit(const Examination* known);

  // --- the cases on the screen
  void shape();
  void styleColumns();
  void fitColumns();
  void showBars();
  void showAll();
  void showRow(int row);
  void showWords();
  void changed(const SheetChange& change);

  // --- what the user does
  bool entryIsTaken();
  void spdCases_EditDone(CellPosition cell, const std::string& text, bool& bAccepted);
  void command(GridCommand what);
  CellRange selected() const;
  void copySelected();
  void paste();
  void cmdAdd_Click();
  void say(std::string text, bool isRefusal);

  const AnalysisState& state_;
  NewCasesSheet cases_;
  int shownRows_ = 0;  // that hold something in the grid
  bool isShaped_ = false;
  bool entryIsOpen_ = false;
  bool isPlaced_ = false;
};

}  // namespace tolmer
