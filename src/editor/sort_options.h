#pragma once

#include "platform/buttons.h"
#include "platform/control_array.h"
#include "platform/fields.h"
#include "platform/labels.h"
#include "platform/panels.h"
#include "platform/window.h"
#include "sheet/data_sheet.h"

namespace tolmer {

// Sorts the cases by one column: an option button for each of up to five variables, a list of more.
// It lives for one showing.
class frmSortOptions : public Window {
 public:
  // The sheet outlives the window.
  frmSortOptions(Desktop& desktop, DataSheet& sheet);

  Label lblInstructions{this, "lblInstructions",
                        "Select the type of sort and the column to sort by"};
  Frame fraSortBy{this, "fraSortBy", "Sort By"};
  OptionButton optSortByLabel{&fraSortBy, "optSortByLabel"};
  ControlArray<OptionButton> optSortBy{fraSortBy, "optSortBy"};
  Label lblSortVbl{&fraSortBy, "lblSortVbl", "Column:"};
  ComboBox cmboSortVbl{&fraSortBy, "cmboSortVbl"};
  Frame fraSortOrder{this, "fraSortOrder", "Sort Order"};
  OptionButton optAscending{&fraSortOrder, "optAscending", "&Ascending"};
  OptionButton optDescending{&fraSortOrder, "optDescending", "&Descending"};
  Button cmdOK{this, "cmdOK", "OK"};
  Button cmdCancel{this, "cmdCancel", "Cancel"};
  Button cmdHelp{this, "cmdHelp", "&Help"};

 private:
  void offerOptions();
  void offerList();
  void layOut();
  void Form_Activate();
  void cmdOK_Click();
  bool agreesToValues();

  DataSheet& sheet_;
  const bool offersList_;
  Int16 miSortCol_ = 0;  // 0: the labels
};

}  // namespace tolmer
