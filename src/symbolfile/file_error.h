#pragma once

#include <string>
#include <string_view>

#include "platform/buttons.h"
#include "platform/fields.h"
#include "platform/labels.h"
#include "platform/window.h"
#include "symbolfile/file_layer.h"

namespace tolmer {

// The one window for failures of files. The reader fills its boxes, shows the buttons that make
// sense, shows it modally and looks at the two flags; both stay False when the window is closed by
// its frame.
class frmFileError : public Window {
 public:
  explicit frmFileError(Desktop& desktop);

  Label Label1{this, "Label1", "An error occurred while trying to process a file."};
  Label Label2{this, "Label2", "File specification:"};
  TextBox txtFileSpec{this, "txtFileSpec"};
  Label Label3{this, "Label3", "Error description:"};
  Label lblErrorDesc{this, "lblErrorDesc", ""};
  Label Label4{this, "Label4", "Possible causes:"};
  TextBox txtCauses{this, "txtCauses"};
  Label Label5{this, "Label5", "What would you like to do?"};
  Label Label6{this, "Label6",
               "You can try to fix the error and tell the program to try again, though this will "
               "not always work."};
  Button cmdRetry{this, "cmdRetry", "&Retry Operation"};
  Button cmdAbort{this, "cmdAbort", "&Abort Operation"};
  Button cmdEndProgram{this, "cmdEndProgram", "&End Program"};

  bool mbRetry = false;
  bool mbAbort = false;

 private:
  void layOut();
  void Form_Activate();
  void choose(bool& mbChoice);
};

std::string_view failureDescription(FailureClass kind);

// The possible causes. A fault of format has the lexical message instead.
std::string failureCauses(const FileFailure& failure);

}  // namespace tolmer
