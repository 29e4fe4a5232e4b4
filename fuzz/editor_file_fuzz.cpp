// Bytes as an editor's file; what is read must write and read again as the same.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "base/file_io.h"
#include "sheetfiles/editor_file.h"

namespace {

constexpr int observations = 6;
constexpr int variables = 4;

// The check sum keeps all but a few inputs from the lines behind it; so it is put right.
std::string withRightCheck(const std::string& lines) {
  return lines + "crc " + tolmer::checksumText(lines) + "\n";
}

void tryFile(const std::string& bytes) {
  const auto read = tolmer::editorFileContent(bytes, observations, variables);
  if (!read) return;
  const std::string written = tolmer::editorFileBytes(read->sheet, read->from);
  const auto again = tolmer::editorFileContent(written, observations, variables);
  if (!again || tolmer::editorFileBytes(again->sheet, again->from) != written) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  tryFile(bytes);
  tryFile(withRightCheck(bytes));
  return 0;
}
