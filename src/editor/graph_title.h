#pragma once

#include <string>

#include "platform/buttons.h"
#include "platform/fields.h"
#include "platform/labels.h"
#include "platform/window.h"
#include "sheet/data_sheet.h"

namespace tolmer {

// Edits the data set's title. It lives for one showing.
class frmGraphTitle : public Window {
 public:
  // The sheet outlives the window.
  frmGraphTitle(Desktop& desktop, DataSheet& sheet);

  Label lblGraphTitle{this, "lblGraphTitle", "Title:"};
  TextBox txtGraphTitle{this, "txtGraphTitle"};
  Button cmdOK{this, "cmdOK", "OK"};
  Button cmdCancel{this, "cmdCancel", "Cancel"};
  Button cmdHelp{this, "cmdHelp", "&Help"};

 private:
  void Form_Activate();
  void cmdOK_Click();

  DataSheet& sheet_;
  std::string mtNewTitle_;
};

}  // namespace tolmer
