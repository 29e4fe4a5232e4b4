// The files of visits: names, locks, and the search for those without an owner.
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <system_error>
#include <utility>

#include "editor/autosave.h"

namespace tolmer {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view lockEnding = ".lock";

Error systemError(const std::string& fileName, int code) {
  return {fileName, "work cannot be written aside: " + std::generic_category().message(code)};
}

std::int64_t secondsWritten(const std::string& fileName) {
  struct stat about {};
  return ::stat(fileName.c_str(), &about) == 0 ? static_cast<std::int64_t>(about.st_mtime) : 0;
}

// Another program may have removed the file between its opening and the lock.
bool lockIsOnTheFile(int descriptor, const std::string& fileName) {
  struct stat opened {};
  struct stat named {};
  return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0 && ::fstat(descriptor, &opened) == 0 &&
         ::stat(fileName.c_str(), &named) == 0 && opened.st_ino == named.st_ino &&
         opened.st_dev == named.st_dev;
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
  for (int tries = 0; tries < 10; ++tries) {
    std::string name = folder + "/visit-XXXXXX" + std::string(lockEnding);
    const int lock = ::mkostemps(name.data(), static_cast<int>(lockEnding.size()), O_CLOEXEC);
    if (lock < 0) return systemError(folder, errno);
    if (lockIsOnTheFile(lock, name))
      return VisitFiles(name.substr(0, name.size() - lockEnding.size()), lock);
    ::close(lock);  // a search for lost work came between
  }
  return systemError(folder, EBUSY);
}

std::optional<VisitFiles> VisitFiles::take(const std::string& folder, const std::string& name) {
  const std::string path = folder + "/" + name;
  const std::string lockName = path + std::string(lockEnding);
  const int lock = ::open(lockName.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW);
  if (lock < 0) return std::nullopt;
  if (lockIsOnTheFile(lock, lockName)) return VisitFiles(path, lock);
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
  if (!hasWork()) ::unlink(lockFile().c_str());
  ::close(lock_);
}

bool VisitFiles::hasWork() const { return ::access(workFile().c_str(), F_OK) == 0; }

void VisitFiles::removeWork() { ::unlink(workFile().c_str()); }

// The lock goes last, and is held until it is gone.
void VisitFiles::remove() {
  if (lock_ < 0) return;
  removeWork();
  ::unlink(lockFile().c_str());
  ::close(std::exchange(lock_, -1));
}

std::int64_t LostWork::written() const { return secondsWritten(files_.workFile()); }

std::string LostWork::timeWritten() const {
  const auto time = static_cast<std::time_t>(written());
  std::tm parts{};
  localtime_r(&time, &parts);
  std::string text(32, '\0');
  text.resize(std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &parts));
  return text;
}

std::vector<LostWork> findLostWork(const std::string& folder) {
  std::vector<std::string> names;
  std::error_code failed;
  for (fs::directory_iterator at(folder, failed), end; !failed && at != end; at.increment(failed))
    if (at->path().extension() == lockEnding && at->path().stem().string().starts_with("visit-"))
      names.push_back(at->path().stem().string());
  std::vector<LostWork> found;
  for (const std::string& name : names) {
    auto files = VisitFiles::take(folder, name);
    if (files && files->hasWork()) found.emplace_back(std::move(*files));
  }
  std::sort(found.begin(), found.end(),
            [](const LostWork& a, const LostWork& b) { return a.written() > b.written(); });
  return found;
}

}  // namespace tolmer
