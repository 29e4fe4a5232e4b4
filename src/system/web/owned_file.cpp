#include "system/owned_file.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include "system/opened_file.h"

namespace tolmer::host {
namespace {

// Nobody else sees this program's files: whoever makes one owns it.
class OnlyFile : public OwnedFile {
 public:
  explicit OnlyFile(std::string name) : name_(std::move(name)) {}
  bool isThere() const override { return secondsWritten(name_).has_value(); }
  void remove() override { std::remove(name_.c_str()); }

 private:
  std::string name_;
};

Owning owning(const std::string& name, bool isOpened) {
  if (!isOpened) return {{}, {}, {errno, std::generic_category()}};
  return {std::make_unique<OnlyFile>(name), name, {}};
}

}  // namespace

Owning makeOwned(const std::string& beginning, const std::string& ending) {
  std::string name = beginning + "XXXXXX" + ending;
  const int descriptor = ::mkstemps(name.data(), static_cast<int>(ending.size()));
  if (descriptor >= 0) ::close(descriptor);
  return owning(name, descriptor >= 0);
}

Owning takeOwned(const std::string& name, std::int64_t) {
  const std::unique_ptr<std::FILE, FileCloser> file(std::fopen(name.c_str(), "ab"));
  return owning(name, file != nullptr);
}

}  // namespace tolmer::host
