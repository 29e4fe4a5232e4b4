#include "system/opened_file.h"

#include <fcntl.h>
#include <io.h>

#include "system/windows/wide.h"

namespace tolmer::host {
namespace {

OpenedFile failed(std::error_code error) {
  OpenedFile file;
  file.error = error;
  return file;
}

std::int64_t number(DWORD high, DWORD low) {
  return static_cast<std::int64_t>((std::uint64_t{high} << 32) | low);
}

}  // namespace

OpenedFile openToRead(const std::string& name) {
  const std::wstring path = wide(name);
  const DWORD attributes = ::GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return failed(lastError());
  OpenedFile file;
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    file.kind = FileKind::folder;
    return file;
  }
  const HANDLE handle = ::CreateFileW(path.c_str(), GENERIC_READ,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return failed(lastError());
  LARGE_INTEGER size{};
  const bool isFile =
      ::GetFileType(handle) == FILE_TYPE_DISK && ::GetFileSizeEx(handle, &size) != 0;
  const int descriptor =
      ::_open_osfhandle(reinterpret_cast<intptr_t>(handle), _O_RDONLY | _O_BINARY);
  file.stream.reset(::_fdopen(descriptor, "rb"));
  file.kind = isFile ? FileKind::regular : FileKind::other;
  file.size = static_cast<std::size_t>(size.QuadPart);
  return file;
}

// Locks here are the system's own, on all of the file.
int tryLock(std::FILE* stream, Lock lock) {
  const auto handle = reinterpret_cast<HANDLE>(::_get_osfhandle(::_fileno(stream)));
  const bool exclusive = lock == Lock::exclusive;
  OVERLAPPED from{};
  const DWORD how = LOCKFILE_FAIL_IMMEDIATELY | (exclusive ? LOCKFILE_EXCLUSIVE_LOCK : 0);
  if (::LockFileEx(handle, how, 0, MAXDWORD, MAXDWORD, &from) == 0)
    return std::make_error_code(std::errc::operation_would_block).value();
  if (!exclusive) ::UnlockFileEx(handle, 0, MAXDWORD, MAXDWORD, &from);
  return 0;
}

bool isReadOnly(const std::string& name) {
  const DWORD attributes = ::GetFileAttributesW(wide(name).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0 &&
         (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

std::optional<std::int64_t> secondsWritten(const std::string& name) {
  WIN32_FILE_ATTRIBUTE_DATA about{};
  if (::GetFileAttributesExW(wide(name).c_str(), GetFileExInfoStandard, &about) == 0)
    return std::nullopt;
  constexpr std::int64_t ticksPerSecond = 10'000'000;     // of 100 ns
  constexpr std::int64_t secondsTo1970 = 11'644'473'600;  // from the year 1601
  return number(about.ftLastWriteTime.dwHighDateTime, about.ftLastWriteTime.dwLowDateTime) /
             ticksPerSecond -
         secondsTo1970;
}

}  // namespace tolmer::host
