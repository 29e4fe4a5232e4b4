// The windows of all displays, each made at its first use.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "displaywindows/display_window.h"

namespace tolmer {

class AllDisplays {
 public:
  AllDisplays(Desktop& desktop, AnalysisState& state, DisplayHost& host);

  // Null for a pair that names no display.
  DisplayWindow* display(int iCategory, int iIndex);
  DisplayWindow& display(const Display& display);

  // UpdateDisplay of every display whose iDisplayState is displayShown, in the order of the list.
  void updateShown();

  // showRemarks of the same.
  void showRemarks();

  // showCases of the same.
  void showCases();

  // Called once for each display that is made.
  std::function<void(DisplayWindow&)> created;

 private:
  void visitShown(void (DisplayWindow::*what)());

  Desktop& desktop_;
  AnalysisState& state_;
  DisplayHost& host_;
  std::vector<std::unique_ptr<DisplayWindow>> displays_;  // as displayList(); null before its use
};

}  // namespace tolmer
