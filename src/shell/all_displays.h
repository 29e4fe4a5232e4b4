// All displays of the program by category and index, each made at its first use.
#pragma once

#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "displays/display_window.h"

namespace tolmer {

// A display is known by its category (DisplayCategory) and, from 1, its index in it.
struct DisplayId {
  int iCategory;
  int iIndex;
  friend bool operator==(const DisplayId&, const DisplayId&) = default;
};

class AllDisplays {
 public:
  AllDisplays(Desktop& desktop, AnalysisState& state, DisplayHost& host);

  // Null for a pair that names no display.
  DisplayWindow* display(int iCategory, int iIndex);
  static bool exists(int iCategory, int iIndex);
  // In the order of categories and indices.
  static std::span<const DisplayId> ids();

  // UpdateDisplay of every display whose iDisplayState is displayShown, in the order of ids().
  void updateShown();

  // Called once for each display that is made.
  std::function<void(DisplayWindow&)> created;

 private:
  Desktop& desktop_;
  AnalysisState& state_;
  DisplayHost& host_;
  std::vector<std::unique_ptr<DisplayWindow>> displays_;  // as ids(); null before its first use
};

}  // namespace tolmer
