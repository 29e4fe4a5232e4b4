// What the menu Explore does beyond notes: predictions, models held against each other, an edited
// copy of the data.
#pragma once

#include "shell/main_flow.h"
#include "shell/shell_parts.h"

namespace tolmer {

class ExploreCommands {
 public:
  ExploreCommands(ShellParts& parts, MainFlow& flow);

  // Numbers of the help's pages.
  static constexpr long helpOnPredict = 323;
  static constexpr long helpOnModels = 324;

  // Another fit stands, or more is known of it now.
  void followFit();

 private:
  ShellParts& parts_;
};

}  // namespace tolmer
