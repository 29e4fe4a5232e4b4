#pragma once

#include <string>

#include "platform/buttons.h"
#include "platform/labels.h"
#include "platform/window.h"

namespace tolmer {

// The module's title and version. A press on the web address copies it.
class frmAbout : public Window {
 public:
  explicit frmAbout(Desktop& desktop);

  std::string ModuleTitleLine1;
  std::string ModuleTitleLine2;  // may be empty
  std::string ModuleVersion;

  // Fills the labels and shows the box modally.
  void ShowAbout();

  Image imgIcon{this, "imgIcon"};
  Label Label1{this, "Label1", "Zelmar"};
  Label lblTitle1{this, "lblTitle1"};
  Label lblTitle2{this, "lblTitle2"};
  Label lblVersion{this, "lblVersion"};
  Label lblWebAddress{this, "lblWebAddress", "Visit the Zelmar Web site at"};
  Button cmdOK{this, "cmdOK", "OK"};

 private:
  void designPlaces();
  void lblWebAddress_MouseDown();

  Colour quietInk_ = colours::buttonText;  // of the address, while it is red
};

}  // namespace tolmer
