#pragma once

#include <string>
#include <vector>

#include "displaywindows/display_window.h"

namespace tolmer::test {

// Notes what a display asks of the shell around it.
class RecordingHost : public DisplayHost {
 public:
  void controlsDisabled() override { calls.push_back("disabled"); }
  void controlsEnabled() override { calls.push_back("enabled"); }
  void axisListsDisabled() override { calls.push_back("lists disabled"); }
  void openDisplayMenu() override { calls.push_back("menu"); }
  std::vector<std::string> calls;
};

}  // namespace tolmer::test
