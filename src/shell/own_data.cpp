#include "shell/own_data.h"

#include "platform/desktop.h"

namespace tolmer {

void OwnData::tellLostWork() {
  const auto lost = findLostWork(autosaveFolder_);
  if (lost.empty()) return;
  desktop_.doEvents();  // what stands behind the box is painted first
  desktop_.messageBox({.title = "Unsaved Data",
                       .text = "The program ended before the data in the Data Editor were saved "
                               "(" +
                               lost.front().timeWritten() +
                               "). Open the Data Editor from the Notebook to bring them back.",
                       .icon = MessageIcon::information});
}

void OwnData::setUp() {
  editor_ =
      std::make_unique<frmDataEditor>(desktop_, EditorFolders{programFolder_, autosaveFolder_});
  editor_->setChangeTitleEnabled(false);
  editor_->setNumberVariables(numberVariables);
  editor_->setMaxObservations(500);
  editor_->setMinObservations(3);
  editor_->setAllowNoData(true);
  editor_->setCopyChangedData(false);
  editor_->SetupEditor();
}

}  // namespace tolmer
