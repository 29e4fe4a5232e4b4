// The files of the editor's visits: names, locks, owners.
//
// Each visit owns two files of a folder: "visit-XXXXXX.zmm", an editor's file that also names the
// file it was opened from, and "visit-XXXXXX.lock", locked by the program that owns it. The system
// drops the lock when the program ends in whatever way, so what lies there unlocked is lost work,
// and of two programs that look for it only one can take it. A file system without locks has the
// owner's name in the lock file instead.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "base/error.h"

namespace tolmer {

// The two files of a visit, owned. Dropping it leaves the work to be found again.
class VisitFiles {
 public:
  static constexpr std::string_view workEnding = ".zmm";
  static constexpr std::string_view lockEnding = ".lock";

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
  std::string workFile() const { return path_ + std::string(workEnding); }
  bool hasWork() const;
  void removeWork();
  // Both files go.
  void remove();

 private:
  VisitFiles(std::string path, int lock) : path_(std::move(path)), lock_(lock) {}
  std::string lockFile() const { return path_ + std::string(lockEnding); }

  std::string path_;  // without ending
  int lock_ = -1;     // descriptor of the lock file; -1 when nothing is owned
};

}  // namespace tolmer
