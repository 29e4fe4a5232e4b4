// Work written aside while the data editor is open, so that a crash or a kill costs seconds.
//
// Each visit owns two files of a folder: "visit-XXXXXX.zmm", an editor's file that also names the
// file it was opened from, and "visit-XXXXXX.lock", locked by the program that owns it. The system
// drops the lock when the program ends in whatever way, so what lies there unlocked is lost work,
// and of two programs that look for it only one can take it. A file system without locks has the
// owner's name in the lock file instead.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/error.h"
#include "base/file_io.h"
#include "editor/editor_file.h"

namespace tolmer {

// Where this user's programs keep such work: "tolmer" in XDG_STATE_HOME, else in ~/.local/state;
// empty where neither is known.
std::string autosaveFolder();

// The two files of a visit, owned. Dropping it leaves the work to be found again.
class VisitFiles {
 public:
  // Makes the folder where it is missing.
  static Result<VisitFiles> create(const std::string& folder);
  // Takes over the files of a visit, named without their endings; nullopt where another program
  // owns them. Makes the lock file where it is gone.
  static std::optional<VisitFiles> take(const std::string& path);

  VisitFiles(VisitFiles&& other) noexcept;
  VisitFiles& operator=(VisitFiles&& other) noexcept;
  ~VisitFiles();

  const std::string& path() const { return path_; }
  // False once another program has cleared the lock file away.
  bool isOwned() const;
  std::string workFile() const { return path_ + ".zmm"; }
  bool hasWork() const;
  void removeWork();
  // Both files go.
  void remove();

 private:
  VisitFiles(std::string path, int lock) : path_(std::move(path)), lock_(lock) {}
  std::string lockFile() const { return path_ + ".lock"; }

  std::string path_;  // without ending
  int lock_ = -1;     // descriptor of the lock file; -1 when nothing is owned
};

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
