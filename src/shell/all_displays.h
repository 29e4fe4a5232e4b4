// All displays of the program by category and index, each made at its first use.
#pragma once

#include <array>
#include <functional>
#include <memory>

#include "displays/display_window.h"

namespace tolmer {

class AllDisplays {
 public:
  AllDisplays(Desktop& desktop, AnalysisState& state, DisplayHost& host);

  // Null for a pair that names no display.
  DisplayWindow* display(int iCategory, int iIndex);
  static bool exists(int iCategory, int iIndex);

  // UpdateDisplay of every display whose iDisplayState is displayShown, in the order of
  // categories and indices.
  void updateShown();

  // Called once for each display that is made.
  std::function<void(DisplayWindow&)> created;

  static constexpr int lastCategory = 4;
  static constexpr int lastIndex = 6;

 private:
  Desktop& desktop_;
  AnalysisState& state_;
  DisplayHost& host_;
  std::array<std::array<std::unique_ptr<DisplayWindow>, lastIndex + 1>, lastCategory + 1> displays_;
};

}  // namespace tolmer
