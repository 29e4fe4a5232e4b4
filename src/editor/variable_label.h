#pragma once

#include "platform/buttons.h"
#include "platform/fields.h"
#include "platform/labels.h"
#include "platform/window.h"
#include "sheet/data_sheet.h"

namespace tolmer {

// Edits what a variable means. It lives for one showing.
class frmVariableLabel : public Window {
 public:
  // The sheet outlives the window; columns from 1.
  frmVariableLabel(Desktop& desktop, DataSheet& sheet, int column);

  Label lblVariableLabel{this, "lblVariableLabel"};
  TextBox txtVariableLabel{this, "txtVariableLabel"};
  Button cmdOK{this, "cmdOK", "OK"};
  Button cmdCancel{this, "cmdCancel", "Cancel"};
  Button cmdHelp{this, "cmdHelp", "&Help"};
};

}  // namespace tolmer
