#include "sheetfiles/visit_files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string_view>
#include <system_error>
#include <utility>

#include "base/file_io.h"

namespace tolmer {
namespace {

constexpr std::string_view lockEnding = VisitFiles::lockEnding;
constexpr std::string_view workEnding = VisitFiles::workEnding;

std::string machine() {
  struct utsname about {};
  return ::uname(&about) == 0 ? about.nodename : "?";
}

std::string machineStart() {
  std::string id = "?";
  std::ifstream("/proc/sys/kernel/random/boot_id") >> id;
  return id;
}

// In ticks since the machine's start; process numbers are used again. Empty where there is no such
// process.
std::string processStart(const std::string& process) {
  std::ifstream file("/proc/" + process + "/stat");
  const std::string all{std::istreambuf_iterator<char>(file), {}};
  const auto nameEnd = all.rfind(')');  // the program's name may have blanks
  if (nameEnd == std::string::npos) return {};
  std::istringstream fields(all.substr(nameEnd + 1));
  constexpr int fieldsToStart = 20;  // behind the name
  std::string field;
  for (int i = 0; i < fieldsToStart; ++i) fields >> field;
  return field;
}

// Where the file system has no locks, as in some home folders on a network, the lock file names the
// program that made it: machine, its start, process and the process's start, divided by blanks.
std::string ownerName() {
  const std::string process = std::to_string(::getpid());
  return machine() + " " + machineStart() + " " + process + " " + processStart(process);
}

// Whether the owner named so still runs. Of a program on another machine nothing can be known: it
// counts as running until its work has been quiet for a day. An empty name is nobody.
bool ownerRuns(const std::string& name, std::time_t lastSign) {
  constexpr std::time_t day = 24 * 60 * 60;
  std::istringstream parts(name);
  std::string host, start, process, since;
  if (!(parts >> host >> start >> process >> since)) return false;
  if (host != machine()) return lastSign > std::time(nullptr) - day;
  return start == machineStart() && since == processStart(process);
}

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

}  // namespace

Result<VisitFiles> VisitFiles::create(const std::string& folder) {
  std::error_code failed;
  std::filesystem::create_directories(folder, failed);
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

}  // namespace tolmer
