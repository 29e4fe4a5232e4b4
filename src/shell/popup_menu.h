#pragma once

#include "shell/display_menu.h"

namespace tolmer {

// Holds the menu of a right click on a display.
class frmMenus {
 public:
  frmMenus();

  MenuItem mnuMenuTop{nullptr, "mnuMenuTop", "Right click menu"};
  MenuItem mnuHistoCopy{&mnuMenuTop, "mnuHistoCopy", "&Copy"};
  MenuItem mnuHistoBar1{&mnuMenuTop, "mnuHistoBar1", "-"};
  DisplayMenu displays;
};

}  // namespace tolmer
