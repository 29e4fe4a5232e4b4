// What becomes of data that are in no file: the questions on the ways out and at the program's end,
// the copy written aside, and what a crash left behind.
#include <string>

#include "base/file_io.h"
#include "editor/data_editor.h"
#include "platform/desktop.h"
#include "sheet/new_sheet.h"

namespace tolmer {

bool frmDataEditor::mayGiveWayTo(const std::string& name) {
  if (!isSetUp_) SetupEditor();
  beginFirstVisit();
  return !holdsUnsavedWork() || isSavedOrGivenUp(name + " takes their place");
}

// What a crash or a kill of an earlier program left behind.
void frmDataEditor::offerLostWork() {
  for (VisitPlacePointer& lost : autosave_.lost()) {
    const auto content = workIn(*lost);
    if (!content) {
      offerToKeep(*lost, content.error());
      continue;
    }
    const Answer answer = desktop().messageBox(
        {.title = "Unsaved Data",
         .text = "The program ended before its data were saved (" + localTime(lost->written()) +
                 "). Do you want to bring them back?",
         .icon = MessageIcon::question,
         .buttons = MessageButtons::yesNo,
         .noLosesWork = true});
    if (answer == Answer::no) {
      lost->remove();
      continue;
    }
    sheet_.replaceWith(content->sheet, content->from);
    sheet_.markNeverSaved();
    files_.takeUp(content->from, lost->written());
    autosave_.adopt(std::move(lost));
    return;
  }
}

void frmDataEditor::offerToKeep(VisitPlace& lost, const Error& fault) {
  const Answer answer = desktop().messageBox(
      {.title = "Unsaved Data",
       .text = "The program ended before its data were saved (" + localTime(lost.written()) +
               "), and the copy that it kept of them cannot be read: it " + fault.text +
               ". Do you want to keep that copy? It will be " + lost.keptName() + ".",
       .icon = MessageIcon::question,
       .buttons = MessageButtons::yesNo,
       .noLosesWork = true});
  answer == Answer::no ? lost.remove() : lost.keepAside();
}

void frmDataEditor::tmrAutosave_Tick() {
  writeAside(Writing::whenDue);
  showStatus();
}

void frmDataEditor::writeAside(Writing when) {
  if (!sheet_.unsaved()) return autosave_.clean();
  const Autosave::Content content = [this] { return sheet_.content(); };
  const std::string& from = sheet_.mtFileName();
  const auto failure =
      when == Writing::now ? autosave_.flush(content, from) : autosave_.poll(content, from);
  if (failure) refusal_ = "The work could not be written aside: " + failure->message();
}

bool frmDataEditor::bfOKToContinue() {
  if (!sheet_.changeMade() && !spdData.editMode()) return true;
  const Answer answer = desktop().messageBox(
      {.title = "Data Changed",
       .text = "There is unsaved data in the Data Editor. Do you want to save it?",
       .icon = MessageIcon::question,
       .buttons = MessageButtons::yesNo,
       .noLosesWork = true});
  if (answer == Answer::no) return true;
  if (!entryIsTaken() || !files_.SaveFileAs()) return false;
  lights_.flash(cmdSave);
  return true;
}

bool frmDataEditor::mayEndProgram() {
  const bool entryIsIn = spdData.commitEdit();
  if ((!entryIsIn || holdsUnsavedWork()) && !isSavedOrGivenUp("the program ends")) return false;
  autosave_.clean();
  return true;
}

bool frmDataEditor::isSavedOrGivenUp(const std::string& before) {
  const Answer answer = desktop().messageBox(
      {"Unsaved Data",
       "The data in the Data Editor have not been saved. Do you want to save them before " +
           before + "?",
       MessageIcon::question, MessageButtons::saveDontSaveCancel});
  return answer == Answer::no ||
         (answer == Answer::yes && entryIsTaken() && (files_.*savingRoutine())());
}

// An empty sheet that never had a file is nobody's work, whatever once stood in it.
bool frmDataEditor::holdsUnsavedWork() const {
  const bool isEmpty = sheet_.mtFileName().empty() &&
                       sheet_.content() == newContent(sheet_.observations(), sheet_.variables());
  return sheet_.unsaved() && !isEmpty;
}

}  // namespace tolmer
