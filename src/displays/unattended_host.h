#pragma once

#include "displays/display_window.h"

namespace tolmer {

// Around displays that nobody clicks: in a report or a measurement.
class UnattendedHost : public DisplayHost {
 public:
  void controlsDisabled() override {}
  void controlsEnabled() override {}
  void axisListsDisabled() override {}
  void openDisplayMenu() override {}
};

}  // namespace tolmer
