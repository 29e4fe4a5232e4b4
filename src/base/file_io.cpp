#include "base/file_io.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>

namespace tolmer {
namespace {

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

Error systemError(const std::string& fileName, std::string_view what, int code) {
  return {fileName, std::string(what) + ": " + std::generic_category().message(code)};
}

bool writeAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

// mkstemp gives an owner-only file; a replaced file keeps its mode, a new one gets the usual one.
mode_t modeFor(const std::string& target) {
  struct stat old {};
  if (::stat(target.c_str(), &old) == 0) return old.st_mode & 0777;
  const mode_t mask = ::umask(0);
  ::umask(mask);
  return 0666 & ~mask;
}

bool fillAndClose(int descriptor, std::string_view bytes, mode_t mode) {
  const bool filled =
      ::fchmod(descriptor, mode) == 0 && writeAll(descriptor, bytes) && ::fsync(descriptor) == 0;
  const int reason = errno;
  const bool closed = ::close(descriptor) == 0;
  if (!filled) errno = reason;
  return filled && closed;
}

// A link stays a link: what it points to is replaced.
std::string behindLinks(const std::string& fileName) {
  std::error_code none;
  const auto target = std::filesystem::canonical(fileName, none);
  return none ? fileName : target.string();
}

std::string folderOf(const std::string& fileName) {
  const std::string folder = std::filesystem::path(fileName).parent_path().string();
  return folder.empty() ? "." : folder;
}

// The new name is on the disk only when its folder is. Some file systems cannot do it; the file
// itself is whole either way.
void flushFolder(const std::string& folder) {
  const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  ::fsync(descriptor);
  ::close(descriptor);
}

}  // namespace

Result<std::string> readWholeFile(const std::string& hostFileName) {
  const File file(std::fopen(hostFileName.c_str(), "rb"));
  if (!file) return systemError(hostFileName, "cannot be opened", errno);
  std::string bytes;
  std::array<char, 1 << 14> buffer;
  while (const std::size_t got = std::fread(buffer.data(), 1, buffer.size(), file.get())) {
    bytes.append(buffer.data(), got);
    if (bytes.size() > maxFileBytes) return Error{hostFileName, "is larger than 64 MB"};
  }
  if (std::ferror(file.get())) return systemError(hostFileName, "cannot be read", errno);
  return bytes;
}

std::optional<Error> writeFileAtomically(const std::string& hostFileName, std::string_view bytes) {
  const std::string target = behindLinks(hostFileName);
  const std::string folder = folderOf(target);
  std::string beside = folder + "/.tolmer-XXXXXX";
  const int descriptor = ::mkostemp(beside.data(), O_CLOEXEC);
  if (descriptor < 0) return systemError(hostFileName, "cannot be written", errno);
  if (fillAndClose(descriptor, bytes, modeFor(target)) &&
      std::rename(beside.c_str(), target.c_str()) == 0) {
    flushFolder(folder);
    return std::nullopt;
  }
  const int reason = errno;
  ::unlink(beside.c_str());
  return systemError(hostFileName, "cannot be written", reason);
}

}  // namespace tolmer
