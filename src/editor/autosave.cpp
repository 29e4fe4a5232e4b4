#include "editor/autosave.h"

#include <algorithm>

#include "base/file_io.h"

namespace tolmer {

Result<EditorFileContent> LostWork::content() const {
  auto bytes = readWholeFile(files_.workFile());
  if (!bytes) return bytes.error();
  return editorFileContent(*bytes);
}

void Autosave::changed() {
  if (!due_) due_ = now_() + interval;
}

std::optional<Error> Autosave::poll(const Content& content, const std::string& from) {
  if (!due_ || now_() < *due_) return std::nullopt;
  auto error = write(content, from);
  const bool toldBefore = failed_;
  failed_ = error.has_value();
  if (failed_)
    due_ = now_() + interval;
  else
    due_.reset();
  return toldBefore ? std::nullopt : error;
}

std::optional<Error> Autosave::write(const Content& content, const std::string& from) {
  keepOwned();
  if (!files_) {
    auto files = VisitFiles::create(folder_);
    if (!files) return files.error();
    files_.emplace(std::move(*files));
  }
  return writeFileAtomically(files_->workFile(), editorFileBytes(content(), from));
}

void Autosave::clean() {
  due_.reset();
  if (!files_ || !files_->hasWork()) return;
  keepOwned();
  if (files_) files_->removeWork();
}

// Where the lock file was cleared away it is made anew, unless another program took the work.
void Autosave::keepOwned() {
  if (files_ && !files_->isOwned()) files_ = VisitFiles::take(files_->path());
}

}  // namespace tolmer
