#include "notebook/cover.h"

#include "base/paths.h"
#include "notebook/book_look.h"
#include "platform/desktop.h"

namespace tolmer {
namespace {

constexpr Colour cream = Colour::rgb(251, 248, 241);
constexpr Colour edge = Colour::rgb(176, 176, 176);
constexpr Colour spine = Colour::rgb(26, 79, 224);  // the blue of the points in all pictures
constexpr Twips edgeWidth = pixels(1);
constexpr Twips spineWidth = pixels(16);
constexpr Size board{CoverBoard::size.width - 2 * edgeWidth,
                     CoverBoard::size.height - 2 * edgeWidth};
constexpr Size picture{pixels(400), pixels(210)};
constexpr Twips left = CoverBoard::messagePlace.left;

constexpr Twips offScreen = -8865;
constexpr int mostDots = 20;

}  // namespace

CoverBoard::CoverBoard(Container& window, const std::string& programFolder)
    : pnlCover(&window, "pnlCover"),
      pnlSpine(&pnlCover, "pnlSpine"),
      lblCoverTitle(&pnlCover, "lblCoverTitle", "Zelmar"),
      imgCoverBackground(&pnlCover, "imgCoverBackground") {
  window.setBackColour(edge);
  pnlCover.setPlace({edgeWidth, edgeWidth, board.width, board.height});
  pnlCover.setBackColour(cream);
  pnlSpine.setPlace({0, 0, spineWidth, board.height});
  pnlSpine.setBackColour(spine);
  lblCoverTitle.setPlace({left, pixels(20), picture.width, pixels(40)});
  lblCoverTitle.setFont(book_look::coverHeadingFont);
  lblCoverTitle.setForeColour(book_look::headingInk);
  lblCoverTitle.setBackColour(cream);
  imgCoverBackground.setPlace({left, pixels(64), picture.width, picture.height});
  imgCoverBackground.setFile(hostPath(programFolder + "\\cover.svg"));
}

void CoverBoard::onClick(const std::function<void()>& clicked) {
  pnlCover.Click = clicked;
  pnlSpine.Click = clicked;
  lblCoverTitle.Click = clicked;
  imgCoverBackground.Click = clicked;
}

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

frmOpeningBook::frmOpeningBook(Desktop& desktop, const std::string& programFolder)
    : Window(desktop, "frmOpeningBook", WindowStyle::bare),
      board(*this, programFolder),
      tmrClose(desktop.timers(), "tmrClose", 1000, true) {
  setPlace({0, 0, CoverBoard::size.width, CoverBoard::size.height});
  centreOnScreen();
  SSPanel1.setPlace(CoverBoard::messagePlace);
  SSPanel1.setFont(book_look::coverHeadingFont);
  SSPanel1.setForeColour(book_look::headingInk);
  SSPanel1.setBackColour(book_look::paper);
  SSPanel1.setBorder(true);
  tmrClose.Tick = [this] {
    tmrClose.setEnabled(false);
    hide();
  };
}

}  // namespace tolmer
