#include "sheetfiles/autosave.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <system_error>
#include <utility>

#include "base/file_io.h"

namespace tolmer {
namespace {

namespace fs = std::filesystem;

std::string environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

}  // namespace

std::string autosaveFolder() {
  const std::string state = environment("XDG_STATE_HOME");
  if (state.starts_with('/')) return state + "/tolmer";
  const std::string home = environment("HOME");
  return home.empty() ? "" : home + "/.local/state/tolmer";
}

std::string LostWork::keptFile() const {
  const fs::path work = files_.workFile();
  return (work.parent_path() / ("kept" + work.filename().string().substr(5))).string();
}

void LostWork::keepAside() {
  if (std::rename(files_.workFile().c_str(), keptFile().c_str()) == 0) files_.remove();
}

std::vector<LostWork> findLostWork(const std::string& folder) {
  std::set<std::string> paths;  // without ending: one of the two files may be gone
  std::error_code failed;
  for (fs::directory_iterator at(folder, failed), end; !failed && at != end; at.increment(failed)) {
    fs::path name = at->path();
    if (name.filename().string().starts_with("visit-") &&
        (name.extension() == VisitFiles::lockEnding || name.extension() == VisitFiles::workEnding))
      paths.insert(name.replace_extension().string());
  }
  std::vector<LostWork> found;
  for (const std::string& path : paths) {
    auto files = VisitFiles::take(path);
    if (files && files->hasWork()) found.emplace_back(std::move(*files));
  }
  std::sort(found.begin(), found.end(),
            [](const LostWork& a, const LostWork& b) { return a.written() > b.written(); });
  return found;
}

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
