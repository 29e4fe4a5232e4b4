#include "system/owned_file.h"

#include "system/windows/wide.h"

namespace tolmer::host {
namespace {

// Nobody else can open, replace or remove the file while the handle is open: the system closes it
// at the program's end.
class HeldFile : public OwnedFile {
 public:
  HeldFile(std::wstring name, Handle handle) : name_(std::move(name)), handle_(std::move(handle)) {}

  bool isThere() const override {
    return ::GetFileAttributesW(name_.c_str()) != INVALID_FILE_ATTRIBUTES;
  }
  void remove() override {
    handle_.close();
    ::DeleteFileW(name_.c_str());
  }

 private:
  std::wstring name_;
  Handle handle_;
};

std::error_code refusal() {
  const DWORD error = ::GetLastError();
  if (error == ERROR_SHARING_VIOLATION || error == ERROR_FILE_EXISTS)
    return std::make_error_code(std::errc::operation_would_block);
  return codeOf(error);
}

Owning opened(const std::string& name, DWORD how) {
  const std::wstring path = wide(name);
  Handle handle(::CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, how,
                              FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!handle) return {{}, {}, refusal()};
  return {std::make_unique<HeldFile>(path, std::move(handle)), name, {}};
}

std::string sixCharacters(unsigned number) {
  std::string text;
  for (int i = 0; i < 6; ++i, number /= 36)
    text += "0123456789abcdefghijklmnopqrstuvwxyz"[number % 36];
  return text;
}

}  // namespace

Owning makeOwned(const std::string& beginning, const std::string& ending) {
  const auto start = static_cast<unsigned>(::GetTickCount64()) ^
                     (static_cast<unsigned>(::GetCurrentProcessId()) << 12);
  Owning made;
  for (unsigned tries = 0; tries < 10 && !made.file; ++tries) {
    made = opened(beginning + sixCharacters(start + tries) + ending, CREATE_NEW);
    if (made.error && made.error != std::errc::operation_would_block) break;
  }
  return made;
}

// Every file system has locks here, on a network, too, so the last sign is not asked.
Owning takeOwned(const std::string& name, std::int64_t /*lastSign*/) {
  return opened(name, OPEN_ALWAYS);
}

}  // namespace tolmer::host
