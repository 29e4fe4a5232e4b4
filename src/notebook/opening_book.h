#pragma once

#include "notebook/cover_board.h"
#include "platform/timer.h"
#include "platform/window.h"

namespace tolmer {

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
