#include "shell/display_menu.h"

#include <cstddef>

namespace tolmer {

DisplayMenu::DisplayMenu(MenuItem& parent, const char* Display::*words, const char* scatterListName)
    : mnuGraphList(&parent, "mnuGraphList", "&Graphs"),
      mnuScatterList(&parent, scatterListName, "&Scatter Plots"),
      mnuTableList(&parent, "mnuTableList", "&Tables") {
  for (const Display& display : displayList()) {
    switch (display.id.iCategory) {
      case graphDisplays:
        add(mnuGraphList, "mnuGraphType", display.id, display.*words);
        break;
      case scatterDisplays:
        add(mnuScatterList, "mnuScatterPlotType", display.id, display.*words);
        break;
      case tableDisplays:
        add(mnuTableList, "mnuTableType", display.id, display.*words);
        break;
      default:
        add(parent, "mnuInterpretation", display.id, display.*words);
    }
  }
}

void DisplayMenu::add(MenuItem& list, const char* name, DisplayId id, const char* words) {
  auto item = std::make_unique<MenuItem>(
      &list, std::string(name) + "(" + std::to_string(id.iIndex) + ")", words);
  item->Click = [this, id] {
    if (chosen) chosen(id.iCategory, id.iIndex);
  };
  entries_.push_back(std::move(item));
}

MenuItem* DisplayMenu::entry(int iCategory, int iIndex) {
  const Display* display = findDisplay({iCategory, iIndex});
  if (!display) return nullptr;
  return entries_[static_cast<std::size_t>(display - displayList().data())].get();
}

}  // namespace tolmer
