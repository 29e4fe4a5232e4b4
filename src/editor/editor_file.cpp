#include "editor/editor_file.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <system_error>

#include "base/file_io.h"

namespace tolmer {

std::optional<Error> saveEditorFile(const std::string& fileName, const SheetContent& sheet) {
  const std::string bytes = editorFileBytes(sheet);
  if (bytes.size() > maxEditorFileBytes)
    return Error{fileName, "the data need " + std::to_string(bytes.size()) +
                               " bytes, and a file may have no more than " +
                               std::to_string(maxEditorFileBytes)};
  return writeFileAtomically(fileName, bytes);
}

Result<SheetContent> loadEditorFile(const std::string& fileName, int observations, int variables) {
  std::error_code failed;
  const auto size = std::filesystem::file_size(fileName, failed);
  if (failed) return Error{fileName, "cannot be opened: " + failed.message()};
  if (size > maxEditorFileBytes)
    return Error{fileName, "has " + std::to_string(size) + " bytes, more than " +
                               std::to_string(maxEditorFileBytes)};
  auto bytes = readWholeFile(fileName);
  if (!bytes) return Error{fileName, bytes.error().text};
  auto content = editorFileContent(*bytes, observations, variables);
  if (!content) return Error{fileName, content.error().message()};
  return std::move(content->sheet);
}

// Root may write anywhere; a file that nobody may write is read-only for root as well.
bool isReadOnly(const std::string& fileName) {
  struct stat about {};
  if (::stat(fileName.c_str(), &about) != 0) return false;
  return (about.st_mode & 0222) == 0 || ::access(fileName.c_str(), W_OK) != 0;
}

}  // namespace tolmer
