// The closed book: a board with spine, name and picture, and room for a message below.
#pragma once

#include <functional>
#include <string>

#include "notebook/notebook.h"
#include "platform/labels.h"
#include "platform/panels.h"
#include "platform/tab_book.h"
#include "platform/timer.h"
#include "platform/window.h"

namespace tolmer {

// Stands on a bare window of its own size.
class CoverBoard {
 public:
  // The picture is a file of the program's folder (without a final backslash).
  CoverBoard(Container& window, const std::string& programFolder);

  static constexpr Size size{pixels(480), pixels(372)};
  // Of a message, on `pnlCover`.
  static constexpr Rect messagePlace{pixels(48), pixels(286), pixels(400), pixels(62)};

  // Wherever the user clicks on the board.
  void onClick(const std::function<void()>& clicked);

  Panel pnlCover;
  Panel pnlSpine;
  Label lblCoverTitle;
  Image imgCoverBackground;
};

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

  NoteBook& nbNoteBook_;
  int dots_ = 0;
};

// The message between the loading and the first page, on the same cover; shown modally, it goes
// away by itself after a second.
class frmOpeningBook : public Window {
 public:
  frmOpeningBook(Desktop& desktop, const std::string& programFolder);

  CoverBoard board;
  Panel SSPanel1{&board.pnlCover, "SSPanel1", "Opening the Zelmar Notebook..."};
  Timer tmrClose;
};

}  // namespace tolmer
