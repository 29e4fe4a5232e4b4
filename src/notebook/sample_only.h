#pragma once

#include "platform/buttons.h"
#include "platform/labels.h"
#include "platform/window.h"

namespace tolmer {

// Tells a student who clicks a picture of the program that it is only a picture.
class frmSampleOnly : public Window {
 public:
  // `pictureFile` is a host path.
  frmSampleOnly(Desktop& desktop, const std::string& pictureFile);

  Image Image1{this, "Image1"};
  Label Label1{this, "Label1",
               "This is a sample only. Press the OK button on the Notebook to select this option."};
  Label Label2{this, "Label2", "Press Continue to proceed..."};
  Button cmdOK{this, "cmdOK", "&Continue"};
};

}  // namespace tolmer
