#include "notebook/opening_book.h"

#include "notebook/book_look.h"
#include "platform/desktop.h"

namespace tolmer {

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
