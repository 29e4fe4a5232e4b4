// Whole data sets: new, open, save, text of other programs.
#include <cstdlib>
#include <filesystem>
#include <utility>

#include "base/file_io.h"
#include "base/paths.h"
#include "editor/data_editor.h"
#include "editor/file_filter.h"
#include "editor/sheet_headings.h"
#include "editor/text_export.h"
#include "platform/desktop.h"

namespace tolmer {
namespace {

char separatorOf(const std::string& fileName) {
  return fileName.ends_with(".csv") || fileName.ends_with(".CSV") ? ',' : '\t';
}

SheetContent contentOf(const ImportedTable& table, int observations, int variables) {
  DataSheet sheet(observations, variables);
  PasteTable block;
  block.cells = table.cells;
  block.headings = table.headings;
  const CellAddress first{table.firstRow, table.firstColumn};
  sheet.paste({first, first}, block);
  return sheet.content();
}

// The words speak of the folder, but it is the file that counts.
bool isToldReadOnly(const std::string& name, MessagePort& messages) {
  if (!isReadOnly(name)) return false;
  messages.messageBox({.title = "Read Only",
                       .text = "This file is in a Read Only directory. Use Save As to save the "
                               "file to a different directory.",
                       .icon = MessageIcon::exclamation});
  return true;
}

}  // namespace

// The user's folder beside the program's; where it can neither be found nor made, the user's
// documents.
std::string frmDataEditor::dataFolder() const {
  const std::string own =
      hostPath(tRemoveBackSlash(tParentFolder(tRemoveBackSlash(coursePath(folders_.program)))) +
               "\\zmdata\\userdata");
  std::error_code failed;
  std::filesystem::create_directories(own, failed);
  if (!failed && !isReadOnly(own)) return own;
  const char* home = std::getenv("HOME");
  return home ? std::string(home) + "/Documents" : std::string();
}

void frmDataEditor::mnuFileNew_Click() {
  spdData.finishEdit();
  if (sheet_.changeMade() &&
      desktop().messageBox({.title = "Data Changed",
                            .text = "The current data has not been saved. Do you want to clear the "
                                    "current data anyway?",
                            .icon = MessageIcon::question,
                            .buttons = MessageButtons::okCancel}) == Answer::cancel)
    return;
  sheet_.clearAll();
  resetGrid();
}

void frmDataEditor::cmdOpen_Click() {
  spdData.finishEdit();
  if (sheet_.changeMade() &&
      desktop().messageBox({.title = "Data Changed",
                            .text = "The current data has not been saved. Do you want to load new "
                                    "data anyway?",
                            .icon = MessageIcon::question,
                            .buttons = MessageButtons::yesNo}) == Answer::no)
    return;
  lights_.light(cmdOpen);
  const auto chosen = desktop().openFileDialog(
      {.title = "Open", .kinds = editorFileKinds(sheet_.variables()), .folder = dataFolder()});
  if (!chosen || wasGivenUp(chosen->path, false)) return;
  isTextData(chosen->path) ? openText(chosen->path) : openFile(chosen->path);
}

// Opens and closes it once. Where that fails, the user has his say; only Abort gives it up.
bool frmDataEditor::wasGivenUp(const std::string& name, bool allowRetry) {
  SymbolFile file(symbolFiles_);
  file.setFileSpec(name);
  file.setAllowRetry(allowRetry);
  file.setAllowAbortOperation(true);
  file.OpenFile();
  if (file.FileIsOpen()) file.CloseFile();
  return file.UserErrorChoice() == SymbolFile::choseAbort;
}

void frmDataEditor::openFile(const std::string& name) {
  const auto content = loadEditorFile(name, sheet_.observations(), sheet_.variables());
  if (!content) {
    desktop().messageBox({.title = "Bad File",
                          .text = "Could not load file " + name + ". Check file type.",
                          .icon = MessageIcon::exclamation});
    refusal_ = content.error().message();
    return showStatus();
  }
  sheet_.replaceWith(*content, name);
  sheet_.markSaved(name);
  resetGrid();
  spdData.setActiveCell({1, 1});
}

// Text of another program becomes a data set without a file of its own yet.
void frmDataEditor::openText(const std::string& name) {
  const auto bytes = readWholeFile(name);
  if (!bytes) return tellImportFailed("Bad File", bytes.error());
  const auto import =
      TextImport::read(*bytes, {TextOrigin::file, 1, 1, sheet_.observations(), sheet_.variables()});
  if (!import) return tellImportFailed("Bad File", import.error());
  const auto table =
      importTable(*import, newContent(sheet_.observations(), sheet_.variables()), name);
  if (!table) return;
  sheet_.replaceWith(contentOf(*table, sheet_.observations(), sheet_.variables()), {});
  resetGrid();
  spdData.setActiveCell({1, 1});
}

void frmDataEditor::cmdSave_Click() {
  saveAndLight([this] { menu.mnuFileSave.enabled() ? SaveCurrentFile() : SaveFileAs(); });
}

void frmDataEditor::saveAndLight(const std::function<void()>& save) {
  spdData.finishEdit();
  save();
  if (!std::exchange(mbUserCancel_, false)) lights_.light(cmdSave);
}

void frmDataEditor::SaveCurrentFile() {
  const std::string name = sheet_.mtFileName();
  mbUserCancel_ = wasGivenUp(name, true) || isToldReadOnly(name, desktop()) || !SaveFile(name);
}

void frmDataEditor::SaveFileAs() {
  const auto chosen = desktop().saveFileDialog({.title = "Save As",
                                                .kinds = editorFileKinds(sheet_.variables()),
                                                .folder = dataFolder(),
                                                .name = sheet_.mtFileName()});
  mbUserCancel_ = !chosen || isToldReadOnly(chosen->path, desktop()) || !SaveFile(chosen->path);
}

// Text for other programs loses formulas and formats, so it does not become the data set's file.
bool frmDataEditor::SaveFile(const std::string& name) {
  const bool asText = isTextData(name);
  const auto failure = asText ? saveSheetText(name, sheet_.content(), separatorOf(name))
                              : saveEditorFile(name, sheet_.content());
  if (failure) {
    desktop().messageBox({.title = "Save",
                          .text = "The data were not saved. " + failure->message(),
                          .icon = MessageIcon::exclamation});
    return false;
  }
  if (!asText) {
    sheet_.markSaved(name);
    autosave_.clean();
    showCaption();
  }
  return true;
}

bool frmDataEditor::bfOKToContinue() {
  if (!sheet_.changeMade()) return true;
  const Answer answer = desktop().messageBox(
      {.title = "Data Changed",
       .text = "There is unsaved data in the Data Editor. Do you want to save it?",
       .icon = MessageIcon::question,
       .buttons = MessageButtons::yesNo,
       .noLosesWork = true});
  if (answer == Answer::no) return true;
  SaveFileAs();
  if (std::exchange(mbUserCancel_, false)) return false;
  lights_.flash(cmdSave);
  return true;
}

}  // namespace tolmer
