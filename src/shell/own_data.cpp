#include "shell/own_data.h"

#include <algorithm>

#include "platform/desktop.h"

namespace tolmer {

void OwnData::tellLostWork() {
  const auto lost = findLostWork(autosaveFolder_);
  if (lost.empty()) return;
  const auto readable = std::find_if(lost.begin(), lost.end(), [](const LostWork& work) {
    return static_cast<bool>(work.content());
  });
  const bool someCanBeRead = readable != lost.end();
  desktop_.doEvents();  // what stands behind the box is painted first
  desktop_.messageBox(
      {.title = "Unsaved Data",
       .text = "The program ended before the data in the Data Editor were saved (" +
               (someCanBeRead ? *readable : lost.front()).timeWritten() +
               (someCanBeRead ? "). Open the Data Editor from the Notebook to bring them back."
                              : "), and the copy that it kept of them cannot be read. Open the "
                                "Data Editor from the Notebook to keep or delete it."),
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
