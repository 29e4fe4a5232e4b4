#include "notebook/note_splash.h"

#include "base/paths.h"
#include "notebook/book_look.h"
#include "platform/desktop.h"

namespace tolmer {
namespace {

// Darker than the curtain behind it, with an edge, so that it stands out as a book.
constexpr Colour coverBlue = Colour::rgb(27, 45, 68);
constexpr Colour coverEdge = Colour::rgb(110, 136, 168);
constexpr Colour coverText = Colour::rgb(240, 244, 248);
constexpr Rect coverPlace{0, 0, pixels(460), pixels(340)};
constexpr Twips edgeWidth = pixels(2);
constexpr Size board{coverPlace.width - 2 * edgeWidth, coverPlace.height - 2 * edgeWidth};
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
  for (Panel* panel :
       {&pnlCover, &pnlContinueMessage, &pnlLoadInfo, &pnlChapterName, &pnlStatusMessage})
    panel->Click = [this] { ClearCover(); };
  tbCover.TabPageActivate = [this](int, int) { ClearCover(); };
  KeyDown = [this](const KeyPress& press, bool& consumed) { Form_KeyPress(press, consumed); };
}

void frmNoteSplash::placeControls() {
  pnlCover.setPlace({edgeWidth, edgeWidth, board.width, board.height});
  lblCoverTitle.setPlace({0, pixels(24), board.width, pixels(48)});
  imgCoverBackground.setPlace(
      {(board.width - pixels(144)) / 2, pixels(90), pixels(144), pixels(144)});
  const Rect messages{pixels(28), pixels(258), board.width - pixels(56), pixels(62)};
  pnlLoadInfo.setPlace(messages);
  pnlContinueMessage.setPlace(messages);
  pnlChapterName.setPlace({pixels(6), pixels(6), messages.width - pixels(12), pixels(24)});
  pnlStatusMessage.setPlace({pixels(6), pixels(32), messages.width - pixels(12), pixels(24)});
  tbCover.setPlace({offScreen, 0, pixels(60), pixels(60)});
  tbCover.setVisible(false);
}

void frmNoteSplash::dressControls() {
  setBackColour(coverEdge);
  pnlCover.setBackColour(coverBlue);
  imgCoverBackground.setFile(hostPath(nbNoteBook_.tProgramFolder + "\\tolmer.svg"));
  lblCoverTitle.setFont(book_look::coverHeadingFont);
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
