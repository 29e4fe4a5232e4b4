// The half of the data editor that shows the sheet: grid, title, status line, and what the user
// does with cells, blocks and rows.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "editor/data_editor_menu.h"
#include "editor/find_dialog.h"
#include "platform/buttons.h"
#include "platform/fields.h"
#include "platform/grid/edit_grid.h"
#include "platform/labels.h"
#include "platform/window.h"
#include "sheet/data_sheet.h"
#include "textimport/html_table.h"

namespace tolmer {

// The sheet is the document, the grid shows it: row r and column c of the grid are row r - 1 and
// column c - 1 of the sheet.
class SheetWindow : public Window {
 public:
  explicit SheetWindow(Desktop& desktop);

  // The document, for dialogs and tests.
  DataSheet& sheet() { return sheet_; }

  DataEditorMenu menu;
  DataEditorCellMenu cellMenu;
  Label lblTitle{this, "lblTitle", "&Title:"};
  TextBox txtTitle{this, "txtTitle"};
  EditGrid spdData{this, "spdData"};
  Label Label1{this, "Label1", "Hint: Type = to enter a formula"};
  Label lblStatus{this, "lblStatus"};
  Button cmdOpen{this, "cmdOpen", "Open"};
  Button cmdSave{this, "cmdSave", "Save"};
  Button cmdOK{this, "cmdOK", "OK"};
  Button cmdCancel{this, "cmdCancel", "Cancel"};
  TextBox txtHelp{this, "txtHelp"};
  Button cmdClose{this, "cmdClose", "&Close"};

 protected:
  // --- the sheet on the screen
  void InitialiseGrid();
  void resetGrid();
  void placeControls();
  void follow(const SheetChange& change);
  void showStatus();
  bool entryIsTaken();

  // --- blocks, rows, formats
  void command(GridCommand what);
  void undoOrRedo(bool undo);
  void insertOrDeleteRows(bool insert);
  void fillDown();
  void fillSeries();
  void find(bool replaces);
  void showDialog(Window&& dialog);
  void editLabel();

  DataSheet sheet_;
  std::string refusal_;  // what the status line says in place of the cell: what was not done, why
  std::string notice_;   // the same, where something was done

 private:
  void wireGrid();
  void showCell(int row, int col);
  void widenFor(CellPosition cell);
  void showColumn(int col);
  void showAll();
  std::string statusText() const;
  void refuse(std::string reason);
  void forgetMessages();
  void showCaption();
  void spdData_EditDone(CellPosition cell, const std::string& text, bool& bAccepted);
  CellRange selectedRange() const;
  std::vector<CellRange> selectedRanges() const;
  static CellRange rangeOf(const CellBlock& block);
  void markRanges(const std::vector<CellRange>& ranges);

  // --- a formula while it is typed
  bool typesFormula() const;
  void spdData_EditChanged();
  std::string pointingText() const;

  // --- blocks and rows
  void copySelection(bool cut);
  std::string htmlOf(const CopiedBlock& block) const;
  void paste();
  // The text box that has the focus; null where the cells are meant.
  TextBox* focusedText();
  void copyText(TextBox& box, bool cut);
  void pasteInto(TextBox& box, std::string text);
  void pasteText(HtmlTable pasted);
  void takePaste(const CellRange& target, const PasteTable& table);
  void tellRefused(int refused, const std::string& reason);
  bool isOneBlock(const std::string& command);
  bool mayChangeRows(bool insert) const;
  void fill(const CellRange& from, const CellRange& to);
  void openCellMenu();

  // What was made of an entry that is not written so; stays in the status line while the cursor is
  // in that cell and in the next one.
  struct EntryTold {
    CellPosition cell{};
    std::string text{};
  };

  std::set<int> drawnColumns_;  // whose width the user has set
  EntryTold told_;
  PasteTable copied_;  // what was copied here last, with its formulas
  int copies_ = 0;
  FindRequest findRequest_;
  bool entryIsOpen_ = false;
};

}  // namespace tolmer
