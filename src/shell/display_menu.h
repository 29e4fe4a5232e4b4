// The list of all displays in a menu. The main menu and the right-click menu each carry one, with
// captions of their own.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/menu.h"

namespace tolmer {

struct DisplayMenuCaptions {
  std::array<const char*, 4> graphs;
  std::array<const char*, 6> tables;
  const char* scatterListName;  // the name of the entry "&Scatter Plots"
};

// Entries: mnuGraphList with mnuGraphType(1..4), the scatter list with mnuScatterPlotType(1..3),
// mnuTableList with mnuTableType(1..6), and mnuInterpretation(1).
class DisplayMenu {
 public:
  DisplayMenu(MenuItem& parent, const DisplayMenuCaptions& captions);

  // The entry of a display; null for a pair that names none.
  MenuItem* entry(int iCategory, int iIndex);

  // The user's choice, by category and index.
  std::function<void(int, int)> chosen;

  MenuItem mnuGraphList;
  MenuItem mnuScatterList;
  MenuItem mnuTableList;

 private:
  void add(MenuItem& list, const char* name, int iCategory, int iIndex, std::string caption);

  struct Entry {
    int iCategory;
    int iIndex;
    std::unique_ptr<MenuItem> item;
  };
  std::vector<Entry> entries_;
};

}  // namespace tolmer
