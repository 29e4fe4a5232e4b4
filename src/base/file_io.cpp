#include "base/file_io.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "system/file_replacement.h"
#include "system/host_path.h"
#include "system/opened_file.h"
#include "system/running_program.h"

namespace tolmer {
namespace {

Error systemError(const std::string& fileName, std::string_view what, const std::string& reason) {
  return {fileName, std::string(what) + ": " + reason};
}

constexpr std::array<std::uint32_t, 256> table = [] {
  std::array<std::uint32_t, 256> steps{};
  for (std::uint32_t i = 0; i < steps.size(); ++i) {
    std::uint32_t sum = i;
    for (int bit = 0; bit < 8; ++bit) sum = (sum >> 1) ^ ((sum & 1) != 0 ? 0xEDB88320U : 0U);
    steps[i] = sum;
  }
  return steps;
}();

}  // namespace

Result<std::string> readWholeFile(const std::string& hostFileName, std::size_t limit) {
  const host::OpenedFile file = host::openToRead(hostFileName);
  if (file.error) return systemError(hostFileName, "cannot be opened", file.error.message());
  if (file.kind == host::FileKind::folder) return Error{hostFileName, "is a folder, not a file"};
  if (file.kind != host::FileKind::regular)
    return Error{hostFileName, "is a pipe or a device, not a file"};
  const Error tooLarge{hostFileName, "is larger than " + std::to_string(limit >> 20) + " MB"};
  if (file.size > limit) return tooLarge;
  std::string bytes;
  bytes.reserve(file.size);
  std::array<char, 1 << 14> buffer;
  while (const std::size_t got = std::fread(buffer.data(), 1, buffer.size(), file.stream.get())) {
    bytes.append(buffer.data(), got);
    if (bytes.size() > limit) return tooLarge;
  }
  if (std::ferror(file.stream.get()))
    return systemError(hostFileName, "cannot be read", std::generic_category().message(errno));
  return bytes;
}

bool isRegularFile(const std::string& hostFileName) {
  std::error_code none;
  return std::filesystem::is_regular_file(host::pathOf(hostFileName), none);
}

bool isReadOnly(const std::string& hostFileName) { return host::isReadOnly(hostFileName); }

std::optional<Error> writeFileAtomically(const std::string& hostFileName, std::string_view bytes) {
  constexpr std::string_view what = "cannot be written";
  const host::Replacement replacement = host::replaceFile(hostFileName, bytes);
  if (replacement.isDone()) return std::nullopt;
  if (replacement.isNoFile) return systemError(hostFileName, what, "it is no ordinary file");
  Error error = systemError(hostFileName, what, replacement.error.message());
  if (!replacement.wholeCopy.empty()) error.text += ". A whole copy is in " + replacement.wholeCopy;
  return error;
}

std::optional<std::int64_t> secondsWritten(const std::string& hostFileName) {
  return host::secondsWritten(hostFileName);
}

std::string localTime(std::int64_t seconds) {
  const std::tm parts = host::localTime(static_cast<std::time_t>(seconds));
  std::string text(32, '\0');
  text.resize(std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &parts));
  return text;
}

std::string checksumText(std::string_view bytes) {
  std::uint32_t sum = 0xFFFFFFFFU;
  for (const char byte : bytes)
    if (byte != '\r') sum = (sum >> 8) ^ table[(sum ^ static_cast<unsigned char>(byte)) & 255];
  std::string digits;
  for (int shift = 28; shift >= 0; shift -= 4) digits += "0123456789ABCDEF"[(~sum >> shift) & 15];
  return digits;
}

}  // namespace tolmer
