#include "shell/about.h"

#include "base/program_version.h"
#include "platform/desktop.h"

namespace tolmer {
namespace {

constexpr Twips titleTop = pixels(64);

}  // namespace

frmAbout::frmAbout(Desktop& desktop)
    : Window(desktop, "frmAbout", WindowStyle::dialog, "About This Module") {
  designPlaces();
  cmdOK.setDefault(true);
  cmdOK.setCancel(true);
  cmdOK.Click = [this] { hide(); };
  lblWebAddress.setCaption(lblWebAddress.caption() + "\n" + webAddress() +
                           "\n(Click here to copy address to clipboard)");
  lblWebAddress.setIsLink(true);
  // A press of the mouse copies by itself; this is the press of a key.
  lblWebAddress.Click = [this] { this->desktop().setClipboard({.text = webAddress()}); };
  lblWebAddress.MouseDown = [this](MouseButton) { lblWebAddress_MouseDown(); };
  lblWebAddress.MouseUp = [this](MouseButton) { lblWebAddress.setForeColour(quietInk_); };
  centreOnScreen();
}

void frmAbout::designPlaces() {
  setPlace({0, 0, pixels(380), pixels(270)});
  imgIcon.setPlace({pixels(24), pixels(60), pixels(64), pixels(64)});
  Label1.setPlace({pixels(24), pixels(14), pixels(332), pixels(36)});
  Label1.setFont({FontFamily::serif, 28, false});
  lblTitle1.setPlace({pixels(112), titleTop, pixels(244), pixels(26)});
  lblTitle1.setFont({FontFamily::interface, 17, true});
  lblTitle2.setPlace({pixels(112), pixels(92), pixels(244), pixels(22)});
  lblVersion.setPlace({pixels(112), pixels(120), pixels(244), pixels(20)});
  lblWebAddress.setPlace({pixels(24), pixels(156), pixels(332), pixels(60)});
  lblWebAddress.setAlign(Align::centre);
  lblWebAddress.setWordWrap(true);
  cmdOK.setPlace({pixels(140), pixels(226), pixels(100), pixels(30)});
}

void frmAbout::ShowAbout() {
  lblTitle1.setCaption(ModuleTitleLine1);
  lblTitle2.setCaption(ModuleTitleLine2);
  lblTitle2.setVisible(!ModuleTitleLine2.empty());
  lblVersion.setCaption(ModuleVersion);
  lblTitle1.setTop(ModuleTitleLine2.empty()
                       ? imgIcon.top() + (imgIcon.height() - lblTitle1.height()) / 2
                       : titleTop);
  cmdOK.setFocus();
  showModal();
}

// The press feels like a button, and the copying happens at the press.
void frmAbout::lblWebAddress_MouseDown() {
  if (lblWebAddress.foreColour() != colours::red) quietInk_ = lblWebAddress.foreColour();
  lblWebAddress.setForeColour(colours::red);
  desktop().setClipboard({.text = webAddress()});
}

}  // namespace tolmer
