// A file opened to be read, and what the system says of files. Names are in UTF-8, in the host's
// spelling.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <system_error>

namespace tolmer::host {

enum class FileKind { regular, folder, other };

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

struct OpenedFile {
  std::unique_ptr<std::FILE, FileCloser> stream;  // null where `error` says why
  FileKind kind = FileKind::other;
  std::size_t size = 0;  // in bytes; 0 for some of the system's own files
  std::error_code error;
};

// Opens without waiting for a pipe's other end. A folder is no error: its stream may be null.
OpenedFile openToRead(const std::string& name);

enum class Lock { shared, exclusive };

// 0, or the system's error where another program has the file. An exclusive lock lasts until the
// stream is closed; a shared one is only tried. Where the file system has no locks, the latter
// succeeds.
int tryLock(std::FILE* stream, Lock lock);

// The file exists and this user may not change it, or nobody may.
bool isReadOnly(const std::string& name);

// When it was written last, in seconds since 1970; nullopt where there is none.
std::optional<std::int64_t> secondsWritten(const std::string& name);

}  // namespace tolmer::host
