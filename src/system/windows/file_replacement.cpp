#include "system/file_replacement.h"

#include "system/windows/wide.h"

namespace tolmer::host {
namespace {

Replacement failed(std::error_code error) { return {.error = error, .wholeCopy = {}}; }

// The file behind a link, which stays one.
std::filesystem::path behindLinks(std::filesystem::path name) {
  constexpr int mostLinks = 40;
  std::error_code failed;
  for (int links = 0; links < mostLinks; ++links) {
    const auto next = std::filesystem::read_symlink(name, failed);
    if (failed) return name;
    name = name.parent_path() / next;
  }
  return name;
}

bool writeAndFlush(HANDLE file, std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD written = 0;
    const auto some = static_cast<DWORD>(std::min(bytes.size(), std::size_t{1} << 24));
    if (::WriteFile(file, bytes.data(), some, &written, nullptr) == 0) return false;
    bytes.remove_prefix(written);
  }
  return ::FlushFileBuffers(file) != 0;
}

// A hidden file that nobody has yet, beside the target.
std::filesystem::path nameBeside(const std::filesystem::path& target) {
  static unsigned count = 0;
  const std::string name = ".tolmer-" + std::to_string(::GetCurrentProcessId()) + "-" +
                           std::to_string(::GetTickCount64()) + "-" + std::to_string(++count);
  return target.parent_path() / name;
}

bool isFolder(DWORD attributes) { return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }

// ReplaceFileW keeps attributes and access list of the old file.
bool takePlace(const std::filesystem::path& beside, const std::filesystem::path& target,
               bool isThere) {
  if (isThere && ::ReplaceFileW(target.c_str(), beside.c_str(), nullptr, 0, nullptr, nullptr) != 0)
    return true;
  return ::MoveFileExW(beside.c_str(), target.c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

std::error_code writeNew(const std::filesystem::path& name, std::string_view bytes) {
  const Handle file(::CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                  FILE_ATTRIBUTE_HIDDEN, nullptr));
  if (!file) return lastError();
  return writeAndFlush(file.get(), bytes) ? std::error_code() : lastError();
}

}  // namespace

Replacement replaceFile(const std::string& name, std::string_view bytes) {
  const auto target = behindLinks(pathOf(name).make_preferred());
  const DWORD attributes = ::GetFileAttributesW(target.c_str());
  const bool isThere = attributes != INVALID_FILE_ATTRIBUTES;
  if (isThere && isFolder(attributes))
    return failed(std::make_error_code(std::errc::is_a_directory));
  if (isThere && (attributes & FILE_ATTRIBUTE_READONLY) != 0)
    return failed(std::make_error_code(std::errc::permission_denied));
  const auto beside = nameBeside(target);
  std::error_code error = writeNew(beside, bytes);
  if (!error && !isThere) ::SetFileAttributesW(beside.c_str(), FILE_ATTRIBUTE_NORMAL);
  if (!error && !takePlace(beside, target, isThere)) error = lastError();
  if (!error) {
    if (isThere) ::SetFileAttributesW(target.c_str(), attributes);
    return {};
  }
  ::DeleteFileW(beside.c_str());
  return failed(error);
}

}  // namespace tolmer::host
