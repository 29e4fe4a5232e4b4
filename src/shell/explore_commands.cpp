#include "shell/explore_commands.h"

namespace tolmer {

ExploreCommands::ExploreCommands(ShellParts& parts, MainFlow& flow) : parts_(parts) {
  const auto wire = [this, &flow](MenuItem& entry, auto& window, long topic) {
    entry.Click = [this, &window] {
      parts_.notes.notes();  // by which the fit is known
      followFit();
      window.open();
    };
    const auto help = [&flow, topic] { flow.ShowHelpTopic(topic); };
    window.cmdHelp.Click = help;
    window.takeKey({keys::f1}, help);
  };
  parts_.predictWindow.examination = [this] { return parts_.notes.wholeExamination(); };
  wire(parts_.frame.mnuExplorePredict, parts_.predictWindow, helpOnPredict);
  wire(parts_.frame.mnuExploreModels, parts_.modelsWindow, helpOnModels);
  parts_.frame.mnuExplore.Click = [this] {
    parts_.frame.mnuExploreEditCopy.setEnabled(parts_.state.iDataSource != dataEditor);
  };
  parts_.frame.mnuExploreEditCopy.Click = [&flow] { flow.editCopy(); };
  parts_.modelsWindow.takeUp = [&flow](const ModelRecord& record) { flow.takeUpModel(record); };
}

void ExploreCommands::followFit() {
  const Examination* known = parts_.notes.examination();
  parts_.predictWindow.follow();
  const auto record = known ? recordOf(parts_.state, known->data, known->fit) : std::nullopt;
  parts_.modelsWindow.follow(record ? &*record : nullptr);
}

}  // namespace tolmer
