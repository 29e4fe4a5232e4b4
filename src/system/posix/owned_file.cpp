#include "system/owned_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <fstream>
#include <iterator>
#include <sstream>

#include "system/opened_file.h"

namespace tolmer::host {
namespace {

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

// Where the file system has no locks, as in some home folders on a network, the file names the
// program that made it: machine, its start, process and the process's start, divided by blanks.
std::string ownerName() {
  const std::string process = std::to_string(::getpid());
  return machine() + " " + machineStart() + " " + process + " " + processStart(process);
}

// Whether the owner named so still runs. An empty name is nobody.
bool ownerRuns(const std::string& name, std::int64_t lastSign) {
  constexpr std::int64_t day = 24 * 60 * 60;
  std::istringstream parts(name);
  std::string host, start, process, since;
  if (!(parts >> host >> start >> process >> since)) return false;
  if (host != machine()) return lastSign > std::time(nullptr) - day;
  return start == machineStart() && since == processStart(process);
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
int claim(int descriptor, const std::string& name, std::int64_t lastSign) {
  const bool locked = ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
  if (!locked && errno == EWOULDBLOCK) return EWOULDBLOCK;
  const std::int64_t signedLast = std::max(lastSign, secondsWritten(name).value_or(0));
  if (ownerRuns(ownerIn(descriptor), signedLast)) return EWOULDBLOCK;
  if (!locked && !sign(descriptor)) return errno;
  return isTheFile(descriptor, name) ? 0 : EWOULDBLOCK;
}

class LockedFile : public OwnedFile {
 public:
  LockedFile(std::string name, int descriptor) : name_(std::move(name)), descriptor_(descriptor) {}
  LockedFile(const LockedFile&) = delete;
  LockedFile& operator=(const LockedFile&) = delete;
  ~LockedFile() override {
    static_cast<void>(::ftruncate(descriptor_, 0));  // a signature ends here, as a lock does
    ::close(descriptor_);
  }

  bool isThere() const override { return isTheFile(descriptor_, name_); }
  void remove() override { ::unlink(name_.c_str()); }

 private:
  std::string name_;
  int descriptor_;
};

Owning refused(int code) { return {{}, {}, {code, std::generic_category()}}; }

}  // namespace

Owning makeOwned(const std::string& beginning, const std::string& ending) {
  int reason = EWOULDBLOCK;
  for (int tries = 0; tries < 10 && reason == EWOULDBLOCK; ++tries) {
    std::string name = beginning + "XXXXXX" + ending;
    const int descriptor = ::mkostemps(name.data(), static_cast<int>(ending.size()), O_CLOEXEC);
    if (descriptor < 0) return refused(errno);
    reason = claim(descriptor, name, 0);
    if (reason == 0) return {std::make_unique<LockedFile>(name, descriptor), name, {}};
    ::unlink(name.c_str());  // a search for lost work came between, or there is no room to sign
    ::close(descriptor);
  }
  return refused(reason);
}

Owning takeOwned(const std::string& name, std::int64_t lastSign) {
  const int descriptor = ::open(name.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
  if (descriptor < 0) return refused(errno);
  const int reason = claim(descriptor, name, lastSign);
  if (reason == 0) return {std::make_unique<LockedFile>(name, descriptor), name, {}};
  ::close(descriptor);
  return refused(reason);
}

}  // namespace tolmer::host
