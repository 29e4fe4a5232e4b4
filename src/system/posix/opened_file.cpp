#include "system/opened_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace tolmer::host {
namespace {

OpenedFile failed() {
  OpenedFile file;
  file.error.assign(errno, std::generic_category());
  return file;
}

FileKind kindOf(const struct stat& about) {
  if (S_ISDIR(about.st_mode)) return FileKind::folder;
  return S_ISREG(about.st_mode) ? FileKind::regular : FileKind::other;
}

}  // namespace

OpenedFile openToRead(const std::string& name) {
  const int descriptor = ::open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  if (descriptor < 0) return failed();
  struct stat about {};
  std::FILE* stream = ::fstat(descriptor, &about) == 0 ? ::fdopen(descriptor, "rb") : nullptr;
  if (!stream) {
    OpenedFile none = failed();
    ::close(descriptor);
    return none;
  }
  OpenedFile file;
  file.stream.reset(stream);
  file.kind = kindOf(about);
  file.size = static_cast<std::size_t>(about.st_size);
  return file;
}

int tryLock(std::FILE* stream, Lock lock) {
  const int descriptor = ::fileno(stream);
  const bool exclusive = lock == Lock::exclusive;
  if (::flock(descriptor, (exclusive ? LOCK_EX : LOCK_SH) | LOCK_NB) != 0)
    return exclusive || errno == EWOULDBLOCK ? errno : 0;
  if (!exclusive) ::flock(descriptor, LOCK_UN);
  return 0;
}

// Root may write anywhere; a file that nobody may write is read-only for root as well.
bool isReadOnly(const std::string& name) {
  struct stat about {};
  if (::stat(name.c_str(), &about) != 0) return false;
  return (about.st_mode & 0222) == 0 || ::access(name.c_str(), W_OK) != 0;
}

std::optional<std::int64_t> secondsWritten(const std::string& name) {
  struct stat about {};
  if (::stat(name.c_str(), &about) != 0) return std::nullopt;
  return static_cast<std::int64_t>(about.st_mtime);
}

}  // namespace tolmer::host
