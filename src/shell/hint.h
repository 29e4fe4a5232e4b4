#pragma once

#include "platform/buttons.h"
#include "platform/labels.h"
#include "platform/panels.h"
#include "platform/timer.h"
#include "platform/window.h"

namespace tolmer {

// Teaches the one thing the student must know of the quadrants: the right click.
class frmHint : public Window {
 public:
  // The pictures of the mouse are files of the program's folder.
  frmHint(Desktop& desktop, std::string programFolder);

  // Starts the blinking and shows the window modally.
  void showHint();

  Panel pnlHint{this, "pnlHint", "Hint"};
  Image imgMouse{this, "imgMouse"};
  Label Label1{this, "Label1",
               "Click the right mouse button on a quadrant to select a different display."};
  Button cmdOK{this, "cmdOK", "OK"};
  Timer tmrMouseBlink;

 private:
  void tmrMouseBlink_Timer();
  void cmdOK_Click();
  void setMouse(bool bOn);

  std::string programFolder_;
  bool mbMouseOn_ = true;
};

}  // namespace tolmer
