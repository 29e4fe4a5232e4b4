// What a compiled notebook knows of a file that it names: a course's files have no such line
// themselves, and one that was cut within its last number would still be read.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/error.h"
#include "fieldfile/field_reader.h"

namespace tolmer {

struct FileStamp {
  std::string checksum;  // checksumText of the whole file
  FieldMarks marks;
  bool operator==(const FileStamp&) const = default;
};

// "crc 0123ABCD semicolon comma", and back; nullopt for anything else.
std::string stampText(const FileStamp& stamp);
std::optional<FileStamp> stampFromText(std::string_view text);

// The error of a file whose content is another one's.
inline constexpr const char* changedFile =
    "It is not the file that the notebook was compiled with.";

// The file, named in course or host spelling, to be read with the stamp's marks; an error where it
// cannot be read or its content is not the stamp's. Without a stamp it is taken as it is.
Result<FieldReader> openStamped(const std::string& fileName, const std::optional<FileStamp>& stamp);

}  // namespace tolmer
