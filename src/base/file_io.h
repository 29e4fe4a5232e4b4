// Whole files in and out.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/data_limits.h"
#include "base/error.h"

namespace tolmer {

// The bytes of a regular file (or a link to one), named in the host's spelling. Anything else that
// has a name, and a file of more than `limit` bytes, is refused unread. The error names the file
// and the reason.
Result<std::string> readWholeFile(const std::string& hostFileName,
                                  std::size_t limit = maxFileBytes);

// Whether there is such a file. False where the folder cannot be looked into.
bool isRegularFile(const std::string& hostFileName);

// The file exists and this user may not change it, or nobody may.
bool isReadOnly(const std::string& hostFileName);

// Writes beside the target, flushes to disk and renames over it, so that a crash or a full disk
// leaves the old file whole. A replaced file keeps owner, group, mode, access list and other names;
// where a new one could not have them, the old one is overwritten while a copy
// "a.saving-XXXXXX.zmm" lies beside it. A symbolic link stays one. Folders and devices are refused.
// Nothing stays behind after a failure, but for that copy where the old file is damaged, which the
// error then names. A kill may leave a hidden ".tolmer-..." or that copy; the former go a day
// later, with any writing to the folder. nullopt is success.
std::optional<Error> writeFileAtomically(const std::string& hostFileName, std::string_view bytes);

// When a file was written last, in seconds since 1970; nullopt where there is none.
std::optional<std::int64_t> secondsWritten(const std::string& hostFileName);

// Such a time as "2026-11-21 18:05", in local time.
std::string localTime(std::int64_t seconds);

inline constexpr std::size_t checksumLength = 8;

// CRC-32 of the bytes as in ISO 3309, carriage returns left out (a transfer that changes line ends
// does no damage), as eight capital hexadecimal digits.
std::string checksumText(std::string_view bytes);

}  // namespace tolmer
