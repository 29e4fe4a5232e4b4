// The files of visits: names, locks, and the search for those without an owner.
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <system_error>
#include <utility>

#include "base/file_io.h"
#include "editor/autosave.h"
#include "editor/visit_owner.h"

namespace tolmer {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view lockEnding = ".lock";
constexpr std::string_view workEnding = ".zmm";

Error systemError(const std::string& fileName, int code) {
  return {fileName, "work cannot be written aside: " + std::generic_category().message(code)};
}

// Another program may have removed the file since its opening.
bool isTheFile(int descriptor, const std::string& fileName) {
  struct stat opened {};
  struct stat named {};
  return ::fstat(descriptor, &opened) == 0 && ::stat(fileName.c_str(), &named) == 0 &&
         opened.st_ino == named.st_ino && opened.st_dev == named.st_dev;
}

std::string ownerIn(int descriptor) {
  std::string text(512, '\0');
  const ssize_t got = ::pread(descriptor, text.data(), text.size(), 0);
  text.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
  return text;
}

bool sign(int descriptor) {
  const std::string owner = ownerName();
  return ::ftruncate(descriptor, 0) == 0 &&
         ::pwrite(descriptor, owner.data(), owner.size(), 0) == static_cast<ssize_t>(owner.size());
}

// Locks the file or, where the file system has no locks, signs it. 0, or the system's reason.
int claim(int descriptor, const std::string& path) {
  const bool locked = ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
  if (!locked && errno == EWOULDBLOCK) return EWOULDBLOCK;
  const std::string lockName = path + std::string(lockEnding);
  const auto lastSign =
      std::max(secondsWritten(lockName), secondsWritten(path + std::string(workEnding)))
          .value_or(0);
  if (ownerRuns(ownerIn(descriptor), lastSign)) return EWOULDBLOCK;
  if (!locked && !sign(descriptor)) return errno;
  return isTheFile(descriptor, lockName) ? 0 : EWOULDBLOCK;
}

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

Result<VisitFiles> VisitFiles::create(const std::string& folder) {
  std::error_code failed;
  fs::create_directories(folder, failed);
  if (failed) return systemError(folder, failed.value());
  int reason = EWOULDBLOCK;
  for (int tries = 0; tries < 10 && reason == EWOULDBLOCK; ++tries) {
    std::string name = folder + "/visit-XXXXXX" + std::string(lockEnding);
    const int lock = ::mkostemps(name.data(), static_cast<int>(lockEnding.size()), O_CLOEXEC);
    if (lock < 0) return systemError(folder, errno);
    const std::string path = name.substr(0, name.size() - lockEnding.size());
    reason = claim(lock, path);
    if (reason == 0) return VisitFiles(path, lock);
    ::unlink(name.c_str());  // a search for lost work came between, or there is no room to sign
    ::close(lock);
  }
  return systemError(folder, reason);
}

std::optional<VisitFiles> VisitFiles::take(const std::string& path) {
  const std::string lockName = path + std::string(lockEnding);
  const int lock = ::open(lockName.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
  if (lock < 0) return std::nullopt;
  if (claim(lock, path) == 0) return VisitFiles(path, lock);
  ::close(lock);
  return std::nullopt;
}

VisitFiles::VisitFiles(VisitFiles&& other) noexcept
    : path_(std::move(other.path_)), lock_(std::exchange(other.lock_, -1)) {}

VisitFiles& VisitFiles::operator=(VisitFiles&& other) noexcept {
  std::swap(path_, other.path_);
  std::swap(lock_, other.lock_);
  return *this;
}

VisitFiles::~VisitFiles() {
  if (lock_ < 0) return;
  if (!hasWork() && isOwned()) ::unlink(lockFile().c_str());
  static_cast<void>(::ftruncate(lock_, 0));  // a signature ends here, as a lock does
  ::close(lock_);
}

bool VisitFiles::isOwned() const { return lock_ >= 0 && isTheFile(lock_, lockFile()); }

bool VisitFiles::hasWork() const { return ::access(workFile().c_str(), F_OK) == 0; }

void VisitFiles::removeWork() { ::unlink(workFile().c_str()); }

// The lock goes last, and is held until it is gone.
void VisitFiles::remove() {
  if (lock_ < 0) return;
  removeWork();
  ::unlink(lockFile().c_str());
  ::close(std::exchange(lock_, -1));
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
        (name.extension() == lockEnding || name.extension() == workEnding))
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

}  // namespace tolmer
