// Work written aside while the data editor is open, so that a crash or a kill costs seconds.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/error.h"
#include "base/file_io.h"
#include "sheetfiles/editor_file.h"
#include "sheetfiles/visit_files.h"

namespace tolmer {

// Where this user's programs keep such work: "tolmer" in XDG_STATE_HOME, else in ~/.local/state;
// empty where neither is known.
std::string autosaveFolder();

// What an earlier visit left behind. Leaving it alone keeps it for the next start.
class LostWork {
 public:
  explicit LostWork(VisitFiles files) : files_(std::move(files)) {}

  Result<EditorFileContent> content() const;
  // When it was written last, in seconds since 1970.
  std::int64_t written() const { return secondsWritten(files_.workFile()).value_or(0); }
  std::string timeWritten() const { return tolmer::timeWritten(files_.workFile()); }
  void discard() { files_.remove(); }
  // For work that cannot be read: it stays under this name and is found no more.
  std::string keptFile() const;
  void keepAside();

 private:
  friend class Autosave;
  VisitFiles files_;
};

// All lost work in the folder, the newest first. It cannot be found by others while it is held.
std::vector<LostWork> findLostWork(const std::string& folder);

class Autosave {
 public:
  using Clock = std::function<std::int64_t()>;  // milliseconds from any start
  using Content = std::function<SheetContent()>;
  static constexpr std::int64_t interval = 3000;

  Autosave(std::string folder, Clock now) : folder_(std::move(folder)), now_(std::move(now)) {}

  const std::string& folder() const { return folder_; }

  // The lost work becomes this visit's: nothing is ever without a copy.
  void adopt(LostWork work) { files_.emplace(std::move(work.files_)); }

  // After each change of the sheet.
  void changed();
  // At least every second. Writes when there are changes and the last writing, or the first change
  // after a quiet time, is `interval` ago. A failure is told once and then tried again at the same
  // pace; the editor goes on without.
  std::optional<Error> poll(const Content& content, const std::string& from);
  // Without waiting, where there are changes.
  std::optional<Error> flush(const Content& content, const std::string& from) {
    if (due_) due_ = now_();
    return poll(content, from);
  }
  // The work is in a file of its own, or was thrown away: nothing of it is kept aside. What is not
  // cleaned away is offered at the next start.
  void clean();

 private:
  std::optional<Error> write(const Content& content, const std::string& from);
  void keepOwned();

  std::string folder_;
  Clock now_;
  std::optional<VisitFiles> files_;  // from the first writing
  std::optional<std::int64_t> due_;  // when there are changes
  bool failed_ = false;
};

}  // namespace tolmer
