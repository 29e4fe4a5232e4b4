#include "shell/own_data.h"

#include <algorithm>

#include "base/file_io.h"
#include "platform/desktop.h"

namespace tolmer {

void OwnData::tellLostWork() {
  if (!aside_) return;
  const auto lost = aside_->lost();
  if (lost.empty()) return;
  const auto readable = std::ranges::find_if(
      lost, [](const VisitPlacePointer& work) { return static_cast<bool>(workIn(*work)); });
  const bool someCanBeRead = readable != lost.end();
  desktop_.doEvents();  // what stands behind the box is painted first
  desktop_.messageBox(
      {"Unsaved Data",
       "The program ended before the data in the Data Editor were saved (" +
           localTime((someCanBeRead ? *readable : lost.front())->written()) +
           (someCanBeRead ? "). Open the Data Editor from the Notebook to bring them back."
                          : "), and the copy that it kept of them cannot be read. Open the "
                            "Data Editor from the Notebook to keep or delete it."),
       MessageIcon::information});
}

void OwnData::setUp() {
  editor_ = std::make_unique<frmDataEditor>(desktop_, EditorPlaces{programFolder_, aside_});
  editor_->setChangeTitleEnabled(false);
  editor_->setNumberVariables(numberVariables);
  editor_->setMaxObservations(500);
  editor_->setMinObservations(3);
  editor_->setAllowNoData(true);
  editor_->setCopyChangedData(false);
  editor_->SetupEditor();
}

}  // namespace tolmer
