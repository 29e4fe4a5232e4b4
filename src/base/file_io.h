// Whole files in and out.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "base/error.h"

namespace tolmer {

// No file of the course or of a student comes near; it keeps a device or a wrong file from filling
// the memory.
inline constexpr std::size_t maxFileBytes = std::size_t{64} << 20;

// The bytes of a file, named in the host's spelling. The error names the file and the system's
// reason.
Result<std::string> readWholeFile(const std::string& hostFileName);

// Writes beside the target, flushes to disk and renames over it, so that a crash or a full disk
// leaves the old file whole. A replaced file keeps its mode; a symbolic link stays one. Nothing
// stays behind after a failure (a kill may leave a hidden ".tolmer-..."); nullopt is success.
std::optional<Error> writeFileAtomically(const std::string& hostFileName, std::string_view bytes);

}  // namespace tolmer
