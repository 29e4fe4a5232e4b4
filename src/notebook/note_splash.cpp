#include "notebook/note_splash.h"

#include "base/paths.h"
#include "notebook/book_look.h"
#include "platform/desktop.h"

namespace tolmer {
namespace {

constexpr Colour coverBlue = Colour::rgb(38, 62, 92);
constexpr Colour coverText = Colour::rgb(240, 244, 248);
constexpr Rect coverPlace{0, 0, pixels(460), pixels(340)};
constexpr Twips offScreen = -8865;
constexpr int mostDots = 20;

}  // namespace

frmNoteSplash::frmNoteSplash(Desktop& desktop, NoteBook& noteBook)
    : Window(desktop, "frmNoteSplash", WindowStyle::bare),
      tmrLoading(desktop.timers(), "tmrLoading", 500),
      nbNoteBook_(noteBook) {
  setPlace(coverPlace);
  centreOnScreen();
  placeControls();
  dressControls();
  tmrLoading.Tick = [this] { ShowAnotherLoadingDot(); };
  Click = [this] { ClearCover(); };
  imgCoverBackground.Click = [this] { ClearCover(); };
  for (Panel* panel : {&pnlContinueMessage, &pnlLoadInfo, &pnlChapterName, &pnlStatusMessage})
    panel->Click = [this] { ClearCover(); };
  tbCover.TabPageActivate = [this](int, int) { ClearCover(); };
  KeyDown = [this](const KeyPress& press, bool& consumed) { Form_KeyPress(press, consumed); };
}

void frmNoteSplash::placeControls() {
  imgCoverBackground.setPlace({pixels(158), pixels(92), pixels(144), pixels(144)});
  lblCoverTitle.setPlace({0, pixels(26), innerWidth(), pixels(48)});
  const Rect messages{pixels(30), pixels(262), innerWidth() - pixels(60), pixels(62)};
  pnlLoadInfo.setPlace(messages);
  pnlContinueMessage.setPlace(messages);
  pnlChapterName.setPlace({pixels(6), pixels(6), messages.width - pixels(12), pixels(24)});
  pnlStatusMessage.setPlace({pixels(6), pixels(32), messages.width - pixels(12), pixels(24)});
  tbCover.setPlace({offScreen, 0, pixels(60), pixels(60)});
  tbCover.setVisible(false);
}

void frmNoteSplash::dressControls() {
  setBackColour(coverBlue);
  imgCoverBackground.setFile(hostPath(nbNoteBook_.tProgramFolder + "\\tolmer.svg"));
  lblCoverTitle.setFont({FontFamily::serif, 36, true});
  lblCoverTitle.setAlign(Align::centre);
  lblCoverTitle.setForeColour(coverText);
  lblCoverTitle.setBackColour(coverBlue);
  pnlLoadInfo.setBorder(true);
  pnlContinueMessage.setBorder(true);
  pnlContinueMessage.setVisible(false);
}

void frmNoteSplash::ShowAnotherLoadingDot() {
  if (dots_ >= mostDots) return;
  ++dots_;
  pnlStatusMessage.setCaption(pnlStatusMessage.caption() + " .");
  const bool quiet = pnlStatusMessage.foreColour() == colours::buttonText;
  pnlStatusMessage.setForeColour(quiet ? colours::red : colours::buttonText);
}

void frmNoteSplash::ClearCover() {
  if (!nbNoteBook_.bAppIsLoading) bUserClickeCover = true;
}

void frmNoteSplash::Form_KeyPress(const KeyPress& press, bool& consumed) {
  if (press.code != keys::enter || !pnlContinueMessage.visible()) return;
  consumed = true;
  ClearCover();
}

}  // namespace tolmer
