#include "sheetfiles/visit_files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <optional>
#include <set>
#include <sstream>
#include <system_error>

#include "base/file_io.h"

namespace tolmer {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view lockEnding = ".lock";
constexpr std::string_view workEnding = ".zmm";

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

// The two files of a visit, owned.
class VisitFiles : public VisitPlace {
 public:
  static Result<std::unique_ptr<VisitFiles>> create(const std::string& folder);
  // Takes over the files of a visit, named without their endings; null where another program owns
  // them. Makes the lock file where it is gone.
  static std::unique_ptr<VisitFiles> take(const std::string& path);

  VisitFiles(std::string path, int lock) : path_(std::move(path)), lock_(lock) {}
  VisitFiles(const VisitFiles&) = delete;
  VisitFiles& operator=(const VisitFiles&) = delete;
  ~VisitFiles() override;

  bool hasWork() const { return ::access(workFile().c_str(), F_OK) == 0; }

  std::optional<Error> write(std::string_view bytes) override;
  Result<std::string> read() const override { return readWholeFile(workFile()); }
  std::int64_t written() const override { return secondsWritten(workFile()).value_or(0); }
  void remove() override {
    if (hasWork() && keepOwned()) ::unlink(workFile().c_str());
  }
  std::string keptName() const override;
  void keepAside() override { std::rename(workFile().c_str(), keptName().c_str()); }

 private:
  std::string workFile() const { return path_ + std::string(workEnding); }
  std::string lockFile() const { return path_ + std::string(lockEnding); }
  // False once another program has cleared the lock file away.
  bool isOwned() const { return isTheFile(lock_, lockFile()); }
  bool keepOwned();
  void swap(VisitFiles& other) {
    std::swap(path_, other.path_);
    std::swap(lock_, other.lock_);
  }

  std::string path_;  // without ending
  int lock_;          // descriptor of the lock file
};

Result<std::unique_ptr<VisitFiles>> VisitFiles::create(const std::string& folder) {
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
    if (reason == 0) return std::make_unique<VisitFiles>(path, lock);
    ::unlink(name.c_str());  // a search for lost work came between, or there is no room to sign
    ::close(lock);
  }
  return systemError(folder, reason);
}

std::unique_ptr<VisitFiles> VisitFiles::take(const std::string& path) {
  const std::string lockName = path + std::string(lockEnding);
  const int lock = ::open(lockName.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
  if (lock < 0) return nullptr;
  if (claim(lock, path) == 0) return std::make_unique<VisitFiles>(path, lock);
  ::close(lock);
  return nullptr;
}

// Without work the lock goes, too, and is held until it is gone.
VisitFiles::~VisitFiles() {
  if (!hasWork() && isOwned()) ::unlink(lockFile().c_str());
  static_cast<void>(::ftruncate(lock_, 0));  // a signature ends here, as a lock does
  ::close(lock_);
}

// Where the lock file was cleared away it is made anew, unless another program took the work.
bool VisitFiles::keepOwned() {
  if (isOwned()) return true;
  const auto again = take(path_);
  if (again) swap(*again);
  return again != nullptr;
}

std::optional<Error> VisitFiles::write(std::string_view bytes) {
  if (!keepOwned()) {
    const auto other = create(fs::path(path_).parent_path().string());
    if (!other) return other.error();
    swap(**other);
  }
  return writeFileAtomically(workFile(), bytes);
}

std::string VisitFiles::keptName() const {
  const fs::path work = workFile();
  return (work.parent_path() / ("kept" + work.filename().string().substr(5))).string();
}

// Without ending: one of the two files may be gone.
std::set<std::string> visitsIn(const std::string& folder) {
  std::set<std::string> paths;
  std::error_code failed;
  for (fs::directory_iterator at(folder, failed), end; !failed && at != end; at.increment(failed)) {
    fs::path name = at->path();
    if (name.filename().string().starts_with("visit-") &&
        (name.extension() == lockEnding || name.extension() == workEnding))
      paths.insert(name.replace_extension().string());
  }
  return paths;
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

Result<VisitPlacePointer> VisitFolder::take() {
  auto files = VisitFiles::create(folder_);
  if (!files) return files.error();
  return VisitPlacePointer(std::move(*files));
}

std::vector<VisitPlacePointer> VisitFolder::lost() {
  std::vector<VisitPlacePointer> found;
  for (const std::string& path : visitsIn(folder_))
    if (auto files = VisitFiles::take(path); files && files->hasWork())
      found.push_back(std::move(files));
  std::ranges::sort(found, std::ranges::greater(), &VisitPlace::written);
  return found;
}

}  // namespace tolmer
