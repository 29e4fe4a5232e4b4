// The cover of the book, on the screen while the program loads.
#pragma once

#include "notebook/cover_board.h"
#include "notebook/notebook.h"
#include "platform/panel.h"
#include "platform/tab_book.h"
#include "platform/timer.h"
#include "platform/window.h"

namespace tolmer {

class frmNoteSplash : public Window {
 public:
  frmNoteSplash(Desktop& desktop, NoteBook& noteBook);

  // Lets the status line grow by a dot and change its colour, up to 20 times.
  void ShowAnotherLoadingDot();
  // The user's click on the cover, which counts only when the loading is over.
  void ClearCover();

  bool bUserClickeCover = false;

  CoverBoard board;
  Panel pnlContinueMessage{&board.pnlCover, "pnlContinueMessage",
                           " Click on the book to continue..."};
  Panel pnlLoadInfo{&board.pnlCover, "pnlLoadInfo"};
  Panel pnlChapterName{&pnlLoadInfo, "pnlChapterName"};
  Panel pnlStatusMessage{&pnlLoadInfo, "pnlStatusMessage", "Loading . ."};
  TabBook tbCover{this, "tbCover"};
  Timer tmrLoading;

 private:
  void placeControls();
  void Form_KeyPress(const KeyPress& press, bool& consumed);

  NoteBook& nbNoteBook_;
  int dots_ = 0;
};

}  // namespace tolmer
