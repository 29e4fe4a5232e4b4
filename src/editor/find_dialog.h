#pragma once

#include <functional>
#include <string>

#include "platform/buttons.h"
#include "platform/fields.h"
#include "platform/labels.h"
#include "platform/window.h"
#include "sheet/data_sheet.h"

namespace tolmer {

// What was looked for last.
struct FindRequest {
  FindWords words;
  std::string by;
};

// Finds texts in the sheet and replaces them. It lives for one showing, beside the cells it shows.
class frmFind : public Window {
 public:
  // Looks on from that cell; `show` brings a found cell to the screen. Sheet and request outlive
  // the window.
  frmFind(Desktop& desktop, DataSheet& sheet, FindRequest& request, CellAddress from,
          std::function<void(CellAddress)> show);
  // What is to be found is known: the box for its replacement gets the focus.
  void startAtReplace();

  Label lblFind{this, "lblFind", "Fi&nd what:"};
  TextBox txtFind{this, "txtFind"};
  Label lblReplace{this, "lblReplace", "Replace &with:"};
  TextBox txtReplace{this, "txtReplace"};
  CheckBox chkCase{this, "chkCase", "&Match case"};
  CheckBox chkWhole{this, "chkWhole", "Wh&ole cell only"};
  Label lblFound{this, "lblFound"};
  Button cmdFindNext{this, "cmdFindNext", "&Find Next"};
  Button cmdFindPrevious{this, "cmdFindPrevious", "Find &Previous"};
  Button cmdReplace{this, "cmdReplace", "&Replace"};
  Button cmdReplaceAll{this, "cmdReplaceAll", "Replace &All"};
  Button cmdClose{this, "cmdClose", "Close"};
  Button cmdHelp{this, "cmdHelp", "&Help"};

 private:
  void layOut();
  void wire();
  void takeRequest();
  void find(bool forward);
  void showFound(CellAddress at, int number, int count);
  void cmdReplace_Click();
  void cmdReplaceAll_Click();
  void tell(std::string text, bool isTrouble = false);

  DataSheet& sheet_;
  FindRequest& request_;
  CellAddress at_;      // where the search goes on
  bool found_ = false;  // it was found there
  std::function<void(CellAddress)> show_;
};

}  // namespace tolmer
