#pragma once

#include <vector>

#include "platform/buttons.h"
#include "platform/control_array.h"
#include "platform/fields.h"
#include "platform/labels.h"
#include "platform/panels.h"
#include "platform/window.h"
#include "sheet/data_sheet.h"

namespace tolmer {

// Sets how many decimals the columns show: one standard for all (mbStandard), or each column by
// itself, with a box for each of up to five variables and a list of more. It lives for one showing.
class frmNumericFormat : public Window {
 public:
  // The sheet outlives the window.
  frmNumericFormat(Desktop& desktop, DataSheet& sheet, bool mbStandard);

  // The Tab key passes its controls before the buttons.
  Panel picDigits{this, "picDigits"};
  Label lblInstructions{&picDigits, "lblInstructions",
                        "Set the number of decimal digits to display in each column."};
  ComboBox cmboVblNames{&picDigits, "cmboVblNames"};
  ControlArray<Label> lblVarName{picDigits, "lblVarName", 0};
  ControlArray<NumberBox> spnDecDigits{picDigits, "spnDecDigits", 0};
  ControlArray<OptionButton> optCols{picDigits, "optCols", 0};
  Button cmdOK{this, "cmdOK", "OK"};
  Button cmdCancel{this, "cmdCancel", "Cancel"};
  Button cmdHelp{this, "cmdHelp", "&Help"};

 private:
  NumberBox& loadDigits(int index, const std::string& name, Twips top);
  void offerStandard();
  void offerList();
  void offerAll();
  void layOut(Twips below);
  void Form_Activate();
  bool isOffered(int iVar) const;
  void cmboVblNames_Click();
  void cmdOK_Click();

  DataSheet& sheet_;
  const bool mbStandard_;
  std::vector<Int16> miDecDigits_;  // (0..variables), element 0 is the standard's
  int shown_ = 0;                   // the element that spnDecDigits(0) shows
};

}  // namespace tolmer
