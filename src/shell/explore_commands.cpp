#include "shell/explore_commands.h"

namespace tolmer {

ExploreCommands::ExploreCommands(ShellParts& parts, MainFlow& flow) : parts_(parts), flow_(flow) {
  parts_.frame.mnuExplorePredict.Click = [this] { openPredict(); };
  const auto help = [this] { flow_.ShowHelpTopic(helpOnPredict); };
  parts_.predictWindow.cmdHelp.Click = help;
  parts_.predictWindow.takeKey({keys::f1}, help);
}

void ExploreCommands::followFit() { parts_.predictWindow.follow(parts_.notes.examination()); }

void ExploreCommands::openPredict() {
  parts_.notes.notes();
  followFit();
  parts_.predictWindow.open();
}

}  // namespace tolmer
