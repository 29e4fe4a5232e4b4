// The list of all displays in a menu: the main menu and the right-click menu each carry one, with
// words of their own.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "displays/display_list.h"
#include "platform/menu.h"

namespace tolmer {

// Entries: mnuGraphList with mnuGraphType(1..4), the scatter list with mnuScatterPlotType(1..3),
// mnuTableList with mnuTableType(1..6), and mnuInterpretation(1).
class DisplayMenu {
 public:
  // `words` are the menu's own in the table of displays, `scatterListName` the name of its entry
  // "&Scatter Plots".
  DisplayMenu(MenuItem& parent, const char* Display::*words, const char* scatterListName);

  // The entry of a display; null for a pair that names none.
  MenuItem* entry(int iCategory, int iIndex);

  // The user's choice, by category and index.
  std::function<void(int, int)> chosen;

  MenuItem mnuGraphList;
  MenuItem mnuScatterList;
  MenuItem mnuTableList;

 private:
  void add(MenuItem& list, const char* name, DisplayId id, const char* words);

  std::vector<std::unique_ptr<MenuItem>> entries_;  // as displayList()
};

// Holds the menu of a right click on a display.
class frmMenus {
 public:
  MenuItem mnuMenuTop{nullptr, "mnuMenuTop", "Right click menu"};
  MenuItem mnuHistoCopy{&mnuMenuTop, "mnuHistoCopy", "&Copy"};
  MenuItem mnuHistoBar1{&mnuMenuTop, "mnuHistoBar1", "-"};
  DisplayMenu displays{mnuMenuTop, &Display::popupWords, "mnuScatterPlotList"};
};

}  // namespace tolmer
