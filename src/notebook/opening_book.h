#pragma once

#include "platform/panel.h"
#include "platform/timer.h"
#include "platform/window.h"

namespace tolmer {

// The message between the cover and the first page; shown modally, it goes away by itself after a
// second.
class frmOpeningBook : public Window {
 public:
  explicit frmOpeningBook(Desktop& desktop);

  Panel SSPanel1{this, "SSPanel1", "Opening the Zelmar Notebook..."};
  Timer tmrClose;
};

}  // namespace tolmer
