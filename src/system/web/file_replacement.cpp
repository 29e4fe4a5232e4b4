#include "system/file_replacement.h"

#include <cerrno>
#include <cstdio>
#include <memory>

#include "system/opened_file.h"

namespace tolmer::host {
namespace {

Replacement failed(int code) { return {.error = {code, std::generic_category()}, .wholeCopy = {}}; }

}  // namespace

// The files lie in memory and end with the program: no crash leaves half of one.
Replacement replaceFile(const std::string& name, std::string_view bytes) {
  const OpenedFile before = openToRead(name);
  if (before.stream && before.kind == FileKind::folder) return failed(EISDIR);
  if (before.stream && before.kind == FileKind::other) return {.isNoFile = true, .wholeCopy = {}};
  std::unique_ptr<std::FILE, FileCloser> file(std::fopen(name.c_str(), "wb"));
  if (!file) return failed(errno);
  const bool isWritten = std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size();
  if (!isWritten || std::fflush(file.get()) != 0) return failed(errno);
  return {};
}

}  // namespace tolmer::host
