#include "shell/display_menu.h"

#include <utility>

#include "state/analysis_state.h"

namespace tolmer {

DisplayMenu::DisplayMenu(MenuItem& parent, const DisplayMenuCaptions& captions)
    : mnuGraphList(&parent, "mnuGraphList", "&Graphs"),
      mnuScatterList(&parent, captions.scatterListName, "&Scatter Plots"),
      mnuTableList(&parent, "mnuTableList", "&Tables") {
  int iIndex = 0;
  for (const char* caption : captions.graphs)
    add(mnuGraphList, "mnuGraphType", graphDisplays, ++iIndex, caption);
  for (iIndex = 1; iIndex <= 3; ++iIndex)
    add(mnuScatterList, "mnuScatterPlotType", scatterDisplays, iIndex,
        "Scatter Plot &" + std::to_string(iIndex));
  iIndex = 0;
  for (const char* caption : captions.tables)
    add(mnuTableList, "mnuTableType", tableDisplays, ++iIndex, caption);
  add(parent, "mnuInterpretation", textDisplays, 1, "&Interpretation");
}

void DisplayMenu::add(MenuItem& list, const char* name, int iCategory, int iIndex,
                      std::string caption) {
  auto item = std::make_unique<MenuItem>(
      &list, std::string(name) + "(" + std::to_string(iIndex) + ")", std::move(caption));
  item->Click = [this, iCategory, iIndex] {
    if (chosen) chosen(iCategory, iIndex);
  };
  entries_.push_back({iCategory, iIndex, std::move(item)});
}

MenuItem* DisplayMenu::entry(int iCategory, int iIndex) {
  for (const Entry& entry : entries_)
    if (entry.iCategory == iCategory && entry.iIndex == iIndex) return entry.item.get();
  return nullptr;
}

}  // namespace tolmer
