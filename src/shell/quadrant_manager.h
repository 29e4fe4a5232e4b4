// What stands in the four quadrants of the frame, and how the menus change it.
#pragma once

#include "base/message_box.h"
#include "shell/all_displays.h"
#include "shell/control_panel.h"
#include "shell/display_menu.h"
#include "shell/main_frame.h"

namespace tolmer {

class QuadrantManager {
 public:
  QuadrantManager(AnalysisState& state, MessagePort& messages, AllDisplays& displays, mdiReg& frame,
                  frmMenus& menus, frmControlPanel& panel);

  // The start layout: coefficients, ANOVA, residual histogram and the control panel.
  void ShowInitialChildren();
  // The start layout again, after the data have changed.
  void RestoreInitialDisplays();
  // Replaces the display in the quadrant of frmCurrentDisplay. The control panel cannot be
  // replaced, and a display that stands in a quadrant cannot stand in a second one: either
  // changes nothing.
  void ShowNewWindow(int iCategory, int iIndex);

  // Brings a display up where it stands, else in the place of the active one, or in the first
  // quadrant while the panel is active. Its window becomes the active one.
  DisplayWindow& bringUp(const Display& display);

  // As halves of the frame's inner size: where it has changed, what stands in the quadrants is
  // placed anew in its row and column.
  void placeQuadrants();
  // Sizes and places one child of the frame in quadrant row iRow, column iCol (1 or 2).
  void PlaceDisplayInQuadrant(Window& frmDisplay, int iRow, int iCol);
  void SetQuadrantEntry(int iRow, int iCol, int iCategory, int iIndex);
  // In both menus.
  void SetDisplayMenuEnabled(int iCategory, int iIndex, bool bEnabled);
  // None that the panel edits, on the screen.
  void DisableScatterControlsIfNone();

 private:
  void measureQuadrants();
  void standInQuadrant(Window& frmDisplay, int iRow, int iCol);
  void showInQuadrant(int iRow, int iCol, int iCategory, int iIndex);
  void hideOccupant(int iRow, int iCol);
  Quadrant& quadrant(int iRow, int iCol);

  AnalysisState& state_;
  MessagePort& messages_;
  AllDisplays& displays_;
  mdiReg& frame_;
  frmMenus& menus_;
  frmControlPanel& panel_;
};

}  // namespace tolmer
