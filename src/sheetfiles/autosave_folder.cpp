#include "sheetfiles/autosave_folder.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <set>
#include <system_error>

#include "base/file_io.h"
#include "system/host_path.h"
#include "system/owned_file.h"

namespace tolmer {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view lockEnding = ".lock";
constexpr std::string_view workEnding = ".zmm";

Error systemError(const std::string& fileName, const std::error_code& code) {
  return {fileName, "work cannot be written aside: " + code.message()};
}

bool isThere(const std::string& fileName) {
  std::error_code failed;
  return fs::exists(host::pathOf(fileName), failed);
}

void renameFile(const std::string& from, const std::string& to) {
  std::error_code failed;
  fs::rename(host::pathOf(from), host::pathOf(to), failed);
}

void removeFile(const std::string& fileName) {
  std::error_code failed;
  fs::remove(host::pathOf(fileName), failed);
}

// The two files of a visit, owned.
class VisitFiles : public VisitPlace {
 public:
  static Result<std::unique_ptr<VisitFiles>> create(const std::string& folder);
  // Takes over the files of a visit, named without their endings; null where another program owns
  // them. Makes the lock file where it is gone.
  static std::unique_ptr<VisitFiles> take(const std::string& path);

  VisitFiles(std::string path, std::unique_ptr<host::OwnedFile> lock)
      : path_(std::move(path)), lock_(std::move(lock)) {}
  VisitFiles(const VisitFiles&) = delete;
  VisitFiles& operator=(const VisitFiles&) = delete;
  ~VisitFiles() override;

  bool hasWork() const { return isThere(workFile()); }

  std::optional<Error> write(std::string_view bytes) override;
  Result<std::string> read() const override { return readWholeFile(workFile()); }
  std::int64_t written() const override { return secondsWritten(workFile()).value_or(0); }
  void remove() override {
    if (hasWork() && keepOwned()) removeFile(workFile());
  }
  std::string keptName() const override;
  void keepAside() override { renameFile(workFile(), keptName()); }

 private:
  std::string workFile() const { return path_ + std::string(workEnding); }
  // False once another program has cleared the lock file away.
  bool isOwned() const { return lock_->isThere(); }
  bool keepOwned();
  void swap(VisitFiles& other) {
    std::swap(path_, other.path_);
    std::swap(lock_, other.lock_);
  }

  std::string path_;  // without ending
  std::unique_ptr<host::OwnedFile> lock_;
};

Result<std::unique_ptr<VisitFiles>> VisitFiles::create(const std::string& folder) {
  std::error_code failed;
  fs::create_directories(host::pathOf(folder), failed);
  if (failed) return systemError(folder, failed);
  host::Owning lock = host::makeOwned(folder + "/visit-", std::string(lockEnding));
  if (!lock.file) return systemError(folder, lock.error);
  lock.name.resize(lock.name.size() - lockEnding.size());
  return std::make_unique<VisitFiles>(lock.name, std::move(lock.file));
}

std::unique_ptr<VisitFiles> VisitFiles::take(const std::string& path) {
  const auto lastWork = secondsWritten(path + std::string(workEnding)).value_or(0);
  host::Owning lock = host::takeOwned(path + std::string(lockEnding), lastWork);
  return lock.file ? std::make_unique<VisitFiles>(path, std::move(lock.file)) : nullptr;
}

// Without work the lock goes, too, and is held until it is gone.
VisitFiles::~VisitFiles() {
  if (!hasWork() && isOwned()) lock_->remove();
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
    const auto other = create(host::nameOf(host::pathOf(path_).parent_path()));
    if (!other) return other.error();
    swap(**other);
  }
  return writeFileAtomically(workFile(), bytes);
}

std::string VisitFiles::keptName() const {
  const fs::path work = host::pathOf(workFile());
  return host::nameOf(work.parent_path() / ("kept" + host::nameOf(work.filename()).substr(5)));
}

// Without ending: one of the two files may be gone.
std::set<std::string> visitsIn(const std::string& folder) {
  std::set<std::string> paths;
  std::error_code failed;
  for (fs::directory_iterator at(host::pathOf(folder), failed), end; !failed && at != end;
       at.increment(failed)) {
    fs::path name = at->path();
    if (host::nameOf(name.filename()).starts_with("visit-") &&
        (name.extension() == lockEnding || name.extension() == workEnding))
      paths.insert(host::nameOf(name.replace_extension()));
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
