#include "shell/hint.h"

#include <utility>

#include "platform/desktop.h"

namespace tolmer {

frmHint::frmHint(Desktop& desktop, std::string programFolder)
    : Window(desktop, "frmHint", WindowStyle::dialog, "Hint"),
      tmrMouseBlink(desktop.timers(), "tmrMouseBlink", 1000),
      programFolder_(std::move(programFolder)) {
  setPlace({0, 0, pixels(420), pixels(150)});
  pnlHint.setPlace({pixels(20), pixels(20), pixels(80), pixels(30)});
  pnlHint.setFont({FontFamily::interface, 14, true});
  imgMouse.setPlace({pixels(28), pixels(60), pixels(72), pixels(72)});
  imgMouse.setAccessibleName("A mouse with its right button lit");
  Label1.setPlace({pixels(120), pixels(24), pixels(280), pixels(60)});
  Label1.setFont({FontFamily::interface, 14, false});
  Label1.setWordWrap(true);
  cmdOK.setPlace({pixels(300), pixels(104), pixels(100), pixels(30)});
  cmdOK.setDefault(true);
  cmdOK.setCancel(true);
  cmdOK.Click = [this] { cmdOK_Click(); };
  QueryUnload = [this](bool&) { tmrMouseBlink.setEnabled(false); };
  tmrMouseBlink.Tick = [this] { tmrMouseBlink_Timer(); };
  setMouse(true);
  centreOnScreen();
}

void frmHint::showHint() {
  tmrMouseBlink.setEnabled(true);
  cmdOK.setFocus();
  showModal();
}

void frmHint::setMouse(bool bOn) {
  mbMouseOn_ = bOn;
  imgMouse.setFile(programFolder_ + (bOn ? "/mouse_on.svg" : "/mouse_off.svg"));
}

void frmHint::tmrMouseBlink_Timer() {
  setMouse(!mbMouseOn_);
  pnlHint.setBackColour(mbMouseOn_ ? colours::red : colours::buttonFace);
  pnlHint.setForeColour(mbMouseOn_ ? colours::white : colours::buttonText);
}

void frmHint::cmdOK_Click() {
  tmrMouseBlink.setEnabled(false);
  hide();
}

}  // namespace tolmer
