// Bytes as a symbol file, read as symbols or numbers in turn. The first byte chooses the handle and
// how often the file is rewound.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <utility>

#include "platform/headless/headless_desktop.h"
#include "symbolfile/symbol_file.h"

namespace {

using namespace tolmer;

// Two files in memory: "1" with another reader's text, and the bytes.
class MemoryFiles : public FileLayer {
 public:
  explicit MemoryFiles(std::string bytes) : bytes_(std::move(bytes)) {}
  int freeHandle() const override { return open_ + 1; }
  std::optional<FileFailure> open(int, const std::string&, bool) override {
    at_[open_++] = 0;
    return std::nullopt;
  }
  std::optional<FileFailure> close(int) override {
    --open_;
    return std::nullopt;
  }
  bool atEnd(int handle) override {
    return handle <= open_ && at(handle) >= static_cast<long>(bytes_.size());
  }
  std::optional<FileFailure> readByte(int handle, char& byte) override {
    if (atEnd(handle)) return FileFailure{FailureClass::pastEnd, 62, "Input past end of file"};
    byte = bytes_[static_cast<std::size_t>(at(handle)++)];
    return std::nullopt;
  }
  long position(int handle) override { return at(handle); }
  void seek(int handle, long position) override { at(handle) = position; }

 private:
  long& at(int handle) { return at_[handle - 1]; }

  std::string bytes_;
  long at_[2] = {0, 0};
  int open_ = 0;
};

void readAll(SymbolFile& reader, std::size_t size) {
  // Every token takes a byte at least, but for the empty ones at the end.
  for (std::size_t i = 0; i < size + 2 && !(i > 0 && reader.EndOfFile()); ++i) {
    if (i % 3 == 2)
      reader.ReadNumber();
    else
      reader.ReadSymbol();
    if (reader.Symbol().find('\t') != std::string::npos) std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  HeadlessDesktop desktop;
  desktop.onModal = [](Window& window) { window.requestClose(); };
  MemoryFiles files(std::string(reinterpret_cast<const char*>(data) + 1, size - 1));
  SymbolFileHost host(desktop, files);
  SymbolFile other(host);
  if (data[0] & 1) other.OpenFile();
  SymbolFile reader(host);
  reader.OpenFile();
  try {
    readAll(reader, size);
    if (data[0] & 2) reader.RewindFile();
    reader.ReadSymbol();
    reader.ReadSymbol();
  } catch (const ProgramEnded&) {
    if (reader.ErrorType() != 6 || reader.VBErrorCode() != 51) std::abort();
  }
  return 0;
}
