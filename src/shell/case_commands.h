// What selects cases beside the displays, and shows the selection.
#pragma once

#include "shell/shell_parts.h"

namespace tolmer {

class CaseCommands {
 public:
  explicit CaseCommands(ShellParts& parts);

  // Page of the help on selected cases.
  static constexpr long helpTopic = 321;

  // Another analysis stands.
  void follow();
  // More, or less, is known of the fit.
  void followFit();

 private:
  void open();
  void showSelection();
  void fillWindow();
  void fillSelected();
  void step(frmCase::Step what);

  ShellParts& parts_;
  std::vector<int> farthest_;  // as the window offers them
};

}  // namespace tolmer
