#include "notebook/opening_book.h"

#include "notebook/book_look.h"
#include "platform/desktop.h"

namespace tolmer {

frmOpeningBook::frmOpeningBook(Desktop& desktop)
    : Window(desktop, "frmOpeningBook", WindowStyle::bare),
      tmrClose(desktop.timers(), "tmrClose", 1000, true) {
  setPlace({0, 0, pixels(400), pixels(96)});
  centreOnScreen();
  SSPanel1.setPlace({0, 0, innerWidth(), innerHeight()});
  SSPanel1.setFont(book_look::openingFont);
  SSPanel1.setForeColour(book_look::headingInk);
  SSPanel1.setBackColour(book_look::paper);
  SSPanel1.setBorder(true);
  tmrClose.Tick = [this] {
    tmrClose.setEnabled(false);
    hide();
  };
}

}  // namespace tolmer
