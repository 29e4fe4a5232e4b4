#include "notebook/note_splash.h"

#include "notebook/book_look.h"
#include "platform/desktop.h"

namespace tolmer {
namespace {

constexpr Twips offScreen = -8865;
constexpr int mostDots = 20;

}  // namespace

frmNoteSplash::frmNoteSplash(Desktop& desktop, NoteBook& noteBook)
    : Window(desktop, "frmNoteSplash", WindowStyle::bare),
      board(*this, noteBook.tProgramFolder),
      tmrLoading(desktop.timers(), "tmrLoading", 500),
      nbNoteBook_(noteBook) {
  setPlace({0, 0, CoverBoard::size.width, CoverBoard::size.height});
  centreOnScreen();
  placeControls();
  tmrLoading.Tick = [this] { ShowAnotherLoadingDot(); };
  Click = [this] { ClearCover(); };
  board.onClick([this] { ClearCover(); });
  for (Panel* panel : {&pnlContinueMessage, &pnlLoadInfo, &pnlChapterName, &pnlStatusMessage}) {
    panel->setBackColour(book_look::paper);
    panel->Click = [this] { ClearCover(); };
  }
  tbCover.TabPageActivate = [this](int, int) { ClearCover(); };
  takeKey(
      {keys::enter}, [this] { ClearCover(); }, [this] { return pnlContinueMessage.visible(); });
}

void frmNoteSplash::placeControls() {
  constexpr Rect messages = CoverBoard::messagePlace;
  constexpr Twips side = pixels(6), line = pixels(24);
  for (Panel* panel : {&pnlLoadInfo, &pnlContinueMessage}) {
    panel->setPlace(messages);
    panel->setBorder(true);
  }
  pnlContinueMessage.setVisible(false);
  pnlChapterName.setPlace({side, side, messages.width - 2 * side, line});
  pnlStatusMessage.setPlace({side, pixels(32), messages.width - 2 * side, line});
  tbCover.setPlace({offScreen, 0, pixels(60), pixels(60)});
  tbCover.setVisible(false);
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

}  // namespace tolmer
