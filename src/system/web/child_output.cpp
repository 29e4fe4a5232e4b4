#include "system/child_output.h"

#include <array>
#include <utility>

#include "system/opened_file.h"

namespace tolmer::host {

// No program runs another here: only the input is looked at.
struct ChildInput::Source {
  std::string bytes;
  bool isRegular = true;
  std::error_code error;
};

ChildInput::ChildInput(std::unique_ptr<Source> source) : source_(std::move(source)) {}
ChildInput::ChildInput(ChildInput&&) noexcept = default;
ChildInput::~ChildInput() = default;

ChildInput ChildInput::ofFile(const std::string& name) {
  const OpenedFile file = openToRead(name);
  auto source = std::make_unique<Source>();
  source->error = file.error;
  source->isRegular = file.kind == FileKind::regular;
  std::array<char, 1 << 14> buffer;
  while (source->isRegular) {
    const std::size_t got = std::fread(buffer.data(), 1, buffer.size(), file.stream.get());
    if (got == 0) break;
    source->bytes.append(buffer.data(), got);
  }
  return ChildInput(std::move(source));
}

ChildInput ChildInput::ofBytes(std::string_view bytes) {
  return ChildInput(std::make_unique<Source>(Source{std::string(bytes), true, {}}));
}

std::error_code ChildInput::error() const { return source_->error; }
bool ChildInput::isRegular() const { return source_->isRegular; }
std::size_t ChildInput::size() const { return source_->bytes.size(); }
std::string ChildInput::beginning(std::size_t most) const { return source_->bytes.substr(0, most); }

ChildOutput outputOf(const std::string&, std::vector<std::string>, const ChildInput&,
                     const ChildLimits&) {
  return {ChildEnd::missing, {}, std::make_error_code(std::errc::no_such_file_or_directory)};
}

}  // namespace tolmer::host
