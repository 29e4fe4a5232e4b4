#include "system/file_replacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <ctime>
#include <filesystem>

namespace tolmer::host {
namespace {

Replacement failed(int code) { return {.error = {code, std::generic_category()}, .wholeCopy = {}}; }

bool writeAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

// The file behind a name, and what it is now.
struct Target {
  std::string path;    // behind all links
  std::string folder;  // of the path
  bool isThere = false;
  struct stat before {};  // where it is there
  Replacement refusal;    // where nothing can be written
};

// A link stays a link, also one to a file that is not there yet.
std::string behindLinks(std::string fileName) {
  constexpr int mostLinks = 40;  // more go in a circle, as the system sees it
  std::error_code failed;
  for (int links = 0; links < mostLinks; ++links) {
    const auto next = std::filesystem::read_symlink(fileName, failed);
    if (failed) return fileName;
    fileName = (std::filesystem::path(fileName).parent_path() / next).string();
  }
  return fileName;
}

std::string folderOf(const std::string& fileName) {
  const std::string folder = std::filesystem::path(fileName).parent_path().string();
  return folder.empty() ? "." : folder;
}

Target targetOf(const std::string& fileName) {
  Target target;
  target.path = behindLinks(fileName);
  target.folder = folderOf(target.path);
  target.isThere = ::stat(target.path.c_str(), &target.before) == 0;
  if (!target.isThere && errno != ENOENT) target.refusal = failed(errno);
  if (target.isThere && S_ISDIR(target.before.st_mode)) target.refusal = failed(EISDIR);
  target.refusal.isNoFile =
      target.isThere && !S_ISDIR(target.before.st_mode) && !S_ISREG(target.before.st_mode);
  return target;
}

bool takesOverRights(int descriptor, const struct stat& from) {
  struct stat now {};
  if (::fstat(descriptor, &now) != 0) return false;
  if ((now.st_uid != from.st_uid || now.st_gid != from.st_gid) &&
      ::fchown(descriptor, from.st_uid, from.st_gid) != 0)
    return false;
  return ::fchmod(descriptor, from.st_mode & 07777) == 0;
}

// A file beside the target, named by that pattern; -1 where it cannot be made. What will take over
// other rights is the owner's alone at first; to a new target the system gives its usual mode.
int openBeside(std::string& pattern, const Target& target) {
  const int descriptor = ::mkostemp(pattern.data(), O_CLOEXEC);
  if (descriptor < 0 || target.isThere) return descriptor;
  ::close(descriptor);
  ::unlink(pattern.c_str());
  return ::open(pattern.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
}

// Whether another file can take the target's place unnoticed.
bool canStandIn(int descriptor, const Target& target) {
  if (!target.isThere) return true;
  return target.before.st_nlink == 1 &&
         ::getxattr(target.path.c_str(), "system.posix_acl_access", nullptr, 0) < 0 &&
         takesOverRights(descriptor, target.before);
}

bool closed(int descriptor, bool wellSoFar) {
  const int reason = errno;
  const bool closed = ::close(descriptor) == 0;
  if (!wellSoFar) errno = reason;
  return wellSoFar && closed;
}

bool fillAndClose(int descriptor, std::string_view bytes) {
  return closed(descriptor, writeAll(descriptor, bytes) && ::fsync(descriptor) == 0);
}

// The new name is on the disk only when its folder is. Some file systems cannot do it; the file
// itself is whole either way.
void flushFolder(const std::string& folder) {
  const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  ::fsync(descriptor);
  ::close(descriptor);
}

// What saves that were killed left in the folder. Younger ones may be at work.
void removeLeftovers(const std::string& folder) {
  constexpr std::time_t day = 24 * 60 * 60;
  constexpr std::string_view beginning = ".tolmer-";
  std::error_code failed;
  for (std::filesystem::directory_iterator at(folder, failed), end; !failed && at != end;
       at.increment(failed)) {
    const std::string name = at->path().filename().string();
    struct stat about {};
    if (name.starts_with(beginning) && name.size() == beginning.size() + 6 &&
        ::lstat(at->path().c_str(), &about) == 0 && S_ISREG(about.st_mode) &&
        about.st_mtime < std::time(nullptr) - day)
      ::unlink(at->path().c_str());
  }
}

// Takes the room first, so that a full disk changes nothing.
bool makeRoom(int descriptor, const Target& target, std::size_t size) {
  const int failed = size == 0 ? 0 : ::posix_fallocate(descriptor, 0, static_cast<off_t>(size));
  if (failed) static_cast<void>(::ftruncate(descriptor, target.before.st_size));
  errno = failed;
  return failed == 0;
}

// "a.saving-XXXXXX.zmm" beside "a.zmm", flushed; empty where it cannot be made. Its name is one
// that the user sees and can open.
std::string writeCopy(const Target& target, std::string_view bytes) {
  const std::filesystem::path path(target.path);
  const std::string extension = path.extension().string();
  std::string copy = target.folder + "/" + path.stem().string() + ".saving-XXXXXX" + extension;
  const int descriptor = ::mkostemps(copy.data(), static_cast<int>(extension.size()), O_CLOEXEC);
  if (descriptor < 0) return {};
  if (fillAndClose(descriptor, bytes)) {
    flushFolder(target.folder);
    return copy;
  }
  const int reason = errno;
  ::unlink(copy.c_str());
  errno = reason;
  return {};
}

// Into the file itself, where another could not have its owner, its access list or its other
// names. A whole copy lies beside it until all is on the disk.
Replacement writeInPlace(const Target& target, std::string_view bytes) {
  const int descriptor = ::open(target.path.c_str(), O_WRONLY | O_CLOEXEC);
  if (descriptor < 0) return failed(errno);
  const std::string copy = writeCopy(target, bytes);
  if (copy.empty() || !makeRoom(descriptor, target, bytes.size())) {
    const Replacement failure = failed(errno);
    if (!copy.empty()) ::unlink(copy.c_str());
    ::close(descriptor);
    return failure;
  }
  if (closed(descriptor, writeAll(descriptor, bytes) &&
                             ::ftruncate(descriptor, static_cast<off_t>(bytes.size())) == 0 &&
                             ::fsync(descriptor) == 0)) {
    ::unlink(copy.c_str());
    return {};
  }
  Replacement failure = failed(errno);
  failure.wholeCopy = copy;
  return failure;
}

}  // namespace

Replacement replaceFile(const std::string& name, std::string_view bytes) {
  const Target target = targetOf(name);
  if (!target.refusal.isDone()) return target.refusal;
  removeLeftovers(target.folder);
  std::string beside = target.folder + "/.tolmer-XXXXXX";
  const int descriptor = openBeside(beside, target);
  if (descriptor < 0) return failed(errno);
  if (!canStandIn(descriptor, target)) {
    ::close(descriptor);
    ::unlink(beside.c_str());
    return writeInPlace(target, bytes);
  }
  if (fillAndClose(descriptor, bytes) && std::rename(beside.c_str(), target.path.c_str()) == 0) {
    flushFolder(target.folder);
    return {};
  }
  const int reason = errno;
  ::unlink(beside.c_str());
  return failed(reason);
}

}  // namespace tolmer::host
