#include "shell/quadrant_manager.h"

#include <array>
#include <cmath>
#include <string>

namespace tolmer {
namespace {

struct Place {
  int iRow;
  int iCol;
  int iCategory;
  int iIndex;
};

constexpr std::array startLayout = {Place{1, 1, tableDisplays, 1}, Place{2, 1, tableDisplays, 2},
                                    Place{2, 2, graphDisplays, 1}};

}  // namespace

QuadrantManager::QuadrantManager(AnalysisState& state, MessagePort& messages, AllDisplays& displays,
                                 mdiReg& frame, frmMenus& menus, frmControlPanel& panel)
    : state_(state),
      messages_(messages),
      displays_(displays),
      frame_(frame),
      menus_(menus),
      panel_(panel) {
  displays_.created = [this](DisplayWindow& display) { frame_.adopt(display); };
  frame_.adopt(panel_);
  frame_.placeQuadrants = [this] { placeQuadrants(); };
}

void QuadrantManager::ShowInitialChildren() {
  InitDisplayTable(state_);
  measureQuadrants();
  for (const Place& place : startLayout)
    showInQuadrant(place.iRow, place.iCol, place.iCategory, place.iIndex);
  PlaceDisplayInQuadrant(panel_, 1, 2);
  panel_.tmrFlashUpdate.setEnabled(false);
}

void QuadrantManager::measureQuadrants() {
  state_.sQuadrantWidth = std::floor(frame_.innerWidth() / 2);
  state_.sQuadrantHeight = std::floor(frame_.innerHeight() / 2);
}

// A display draws itself for its new size, also while others leave their sizes alone.
void QuadrantManager::placeQuadrants() {
  if (!quadrant(1, 2).frmDisplay) return;
  const Size before{state_.sQuadrantWidth, state_.sQuadrantHeight};
  measureQuadrants();
  if (before == Size{state_.sQuadrantWidth, state_.sQuadrantHeight}) return;
  const UpdateLock lock(frame_);
  for (const int iRow : {1, 2})
    for (const int iCol : {1, 2}) {
      Window& window = *quadrant(iRow, iCol).frmDisplay;
      standInQuadrant(window, iRow, iCol);
      if (auto* display = dynamic_cast<DisplayWindow*>(&window)) display->UpdateDisplay();
    }
}

// All quadrants are emptied before the first is filled: a display of the start layout may stand in
// the place of another. A maximised panel would have them lie over it.
void QuadrantManager::RestoreInitialDisplays() {
  const UpdateLock lock(frame_);
  state_.bAllowUnload = true;
  panel_.setState(WindowState::normal);
  for (const Place& place : startLayout) hideOccupant(place.iRow, place.iCol);
  for (const Place& place : startLayout)
    showInQuadrant(place.iRow, place.iCol, place.iCategory, place.iIndex);
  DisableScatterControlsIfNone();
  state_.bAllowUnload = false;
}

void QuadrantManager::ShowNewWindow(int iCategory, int iIndex) {
  if (!findDisplay({iCategory, iIndex})) {
    messages_.messageBox({{}, "Error in ShowNewWindow"});
    return;
  }
  Window* current = state_.frmCurrentDisplay;
  if (!current || current == &panel_ || current->tag().size() != 2 || !current->visible()) return;
  if (state_.iDisplayState(iCategory, iIndex) == displayShown) return;

  const UpdateLock lock(frame_);
  if (current->state() == WindowState::maximised) current->setState(WindowState::normal);
  const int iRow = current->tag()[0] - '0';
  const int iCol = current->tag()[1] - '0';
  state_.bAllowUnload = true;
  hideOccupant(iRow, iCol);
  showInQuadrant(iRow, iCol, iCategory, iIndex);
  displays_.display(iCategory, iIndex)->UpdateDisplay();
  DisableScatterControlsIfNone();
  state_.bAllowUnload = false;
}

DisplayWindow& QuadrantManager::bringUp(const Display& display) {
  const auto [iCategory, iIndex] = display.id;
  DisplayWindow& window = displays_.display(display);
  Window* active = frame_.activeChild();
  // What is maximised would lie over it.
  if (active && active != &window) active->setState(WindowState::normal);
  if (state_.iDisplayState(iCategory, iIndex) != displayShown) {
    state_.frmCurrentDisplay = active && active != &panel_ ? active : quadrant(1, 1).frmDisplay;
    ShowNewWindow(iCategory, iIndex);
  }
  window.activate();
  return window;
}

void QuadrantManager::PlaceDisplayInQuadrant(Window& frmDisplay, int iRow, int iCol) {
  const UpdateLock lock(frame_);
  quadrant(iRow, iCol).frmDisplay = &frmDisplay;
  frmDisplay.setTag(std::to_string(iRow) + std::to_string(iCol));
  standInQuadrant(frmDisplay, iRow, iCol);
  state_.bProcessResize = false;
  frmDisplay.show();
  state_.bProcessResize = true;
}

void QuadrantManager::standInQuadrant(Window& frmDisplay, int iRow, int iCol) {
  state_.bProcessResize = false;
  const Twips top = iRow == 1 ? 0 : state_.sQuadrantHeight;
  const Twips left = iCol == 1 ? 0 : state_.sQuadrantWidth;
  frmDisplay.setPlace({left, top, state_.sQuadrantWidth, state_.sQuadrantHeight});
  if (auto* display = dynamic_cast<DisplayWindow*>(&frmDisplay))
    display->PositionControls();
  else if (&frmDisplay == &panel_)
    panel_.PositionControls();
  state_.bProcessResize = true;
}

void QuadrantManager::SetQuadrantEntry(int iRow, int iCol, int iCategory, int iIndex) {
  quadrant(iRow, iCol).iCategory = static_cast<Int16>(iCategory);
  quadrant(iRow, iCol).iIndex = static_cast<Int16>(iIndex);
}

void QuadrantManager::SetDisplayMenuEnabled(int iCategory, int iIndex, bool bEnabled) {
  for (DisplayMenu* menu : {&frame_.displays, &menus_.displays})
    if (MenuItem* entry = menu->entry(iCategory, iIndex)) entry->setEnabled(bEnabled);
}

void QuadrantManager::DisableScatterControlsIfNone() {
  if (state_.iCurrentPlot > 0 &&
      state_.iDisplayState(scatterDisplays, state_.iCurrentPlot) == displayShown)
    return panel_.checkAfterDrawing();
  panel_.ControlsDisabled();
  panel_.showChoices();
}

void QuadrantManager::showInQuadrant(int iRow, int iCol, int iCategory, int iIndex) {
  state_.iDisplayState(iCategory, iIndex) = displayShown;
  PlaceDisplayInQuadrant(*displays_.display(iCategory, iIndex), iRow, iCol);
  SetQuadrantEntry(iRow, iCol, iCategory, iIndex);
  SetDisplayMenuEnabled(iCategory, iIndex, false);
}

void QuadrantManager::hideOccupant(int iRow, int iCol) {
  const Quadrant& place = quadrant(iRow, iCol);
  if (place.frmDisplay) {
    if (place.frmDisplay->state() == WindowState::maximised)
      place.frmDisplay->setState(WindowState::normal);
    place.frmDisplay->hide();
  }
  state_.iDisplayState(place.iCategory, place.iIndex) = displayHidden;
  SetDisplayMenuEnabled(place.iCategory, place.iIndex, true);
}

Quadrant& QuadrantManager::quadrant(int iRow, int iCol) {
  return state_.uQuadrant.at(iRow).at(iCol);
}

}  // namespace tolmer
