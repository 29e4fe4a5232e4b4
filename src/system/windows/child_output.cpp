#include "system/child_output.h"

#include <array>
#include <cstdio>

#include "system/opened_file.h"

// The program that reads foreign files is confined by means that this system does not have, so
// there is none of it here; what a file is can still be told.
namespace tolmer::host {

struct ChildInput::Source {
  OpenedFile file;
  std::string bytes;  // in place of a file
};

ChildInput::ChildInput(std::unique_ptr<Source> source) : source_(std::move(source)) {}
ChildInput::ChildInput(ChildInput&&) noexcept = default;
ChildInput::~ChildInput() = default;

ChildInput ChildInput::ofFile(const std::string& name) {
  return ChildInput(std::make_unique<Source>(Source{openToRead(name), {}}));
}

ChildInput ChildInput::ofBytes(std::string_view bytes) {
  Source source;
  source.file.kind = FileKind::regular;
  source.file.size = bytes.size();
  source.bytes = bytes;
  return ChildInput(std::make_unique<Source>(std::move(source)));
}

std::error_code ChildInput::error() const { return source_->file.error; }

bool ChildInput::isRegular() const { return source_->file.kind == FileKind::regular; }

std::size_t ChildInput::size() const { return source_->file.size; }

std::string ChildInput::beginning(std::size_t most) const {
  std::FILE* stream = source_->file.stream.get();
  if (!stream) return source_->bytes.substr(0, most);
  std::string bytes(most, '\0');
  std::rewind(stream);
  bytes.resize(std::fread(bytes.data(), 1, most, stream));
  return bytes;
}

ChildOutput outputOf(const std::string& /*program*/, std::vector<std::string> /*words*/,
                     const ChildInput& /*input*/, const ChildLimits& /*limits*/) {
  return {ChildEnd::missing, {}, std::make_error_code(std::errc::no_such_file_or_directory)};
}

}  // namespace tolmer::host
