#include "platform/desktop.h"

#include "base/file_io.h"

namespace tolmer {

Saving Desktop::saveFile(const FileToSave& file) {
  const auto chosen = file.path.empty()
                          ? saveFileDialog(file.question)
                          : ChosenFile{file.path, kindOf(file.question, file.path, 0)};
  if (!chosen) return {};
  if (isReadOnly(chosen->path)) {
    // The words speak of the folder, but it is the file that counts.
    messageBox({"Read Only",
                "This file is in a Read Only directory. Use " + file.question.title +
                    " to save the file to a different directory.",
                MessageIcon::exclamation});
    return {Saving::End::failed};
  }
  const auto bytes = file.bytes(*chosen);
  if (!bytes) return failed(file, bytes.error());
  if (const auto error = writeFileAtomically(chosen->path, *bytes)) return failed(file, *error);
  return {Saving::End::saved, chosen->path};
}

Saving Desktop::failed(const FileToSave& file, const Error& reason) {
  messageBox({"Save", file.notSaved + ' ' + reason.message(), MessageIcon::exclamation});
  return {Saving::End::failed};
}

}  // namespace tolmer
