#include "fieldfile/file_stamp.h"

#include <array>
#include <utility>

#include "base/file_io.h"
#include "base/paths.h"

namespace tolmer {
namespace {

constexpr std::string_view start = "crc ";

struct MarkName {
  char mark;
  std::string_view name;
};
constexpr std::array<MarkName, 4> separators{
    {{',', "comma"}, {';', "semicolon"}, {'\t', "tab"}, {' ', "blank"}}};
constexpr std::array<MarkName, 2> decimals{{{'.', "point"}, {',', "comma"}}};

}  // namespace

std::string stampText(const FileStamp& stamp) {
  std::string text = std::string(start) + stamp.checksum;
  for (const auto& [mark, name] : separators)
    if (mark == stamp.marks.separator) text.append(" ").append(name);
  for (const auto& [mark, name] : decimals)
    if (mark == stamp.marks.decimal) text.append(" ").append(name);
  return text;
}

std::optional<FileStamp> stampFromText(std::string_view text) {
  if (!text.starts_with(start)) return std::nullopt;
  const std::string checksum(text.substr(start.size(), checksumLength));
  for (const auto& separator : separators)
    for (const auto& decimal : decimals)
      if (const FileStamp stamp{checksum, {separator.mark, decimal.mark}}; stampText(stamp) == text)
        return stamp;
  return std::nullopt;
}

Result<FieldReader> openStamped(const std::string& fileName,
                                const std::optional<FileStamp>& stamp) {
  auto bytes = readWholeFile(hostPath(fileName));
  if (!bytes) return Error{fileName, bytes.error().text};
  if (stamp && stamp->checksum != checksumText(*bytes)) return Error{fileName, changedFile};
  return FieldReader(fileName, std::move(*bytes), stamp ? stamp->marks : FieldMarks{});
}

}  // namespace tolmer
