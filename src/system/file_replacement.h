// A file's new bytes in place of its old ones, so that a crash or a full disk leaves one of them
// whole.
#pragma once

#include <string>
#include <string_view>
#include <system_error>

namespace tolmer::host {

struct Replacement {
  std::error_code error;  // what went wrong, if anything
  bool isNoFile = false;  // the name is that of a pipe or device; nothing was done
  std::string wholeCopy;  // where the old file is damaged: a copy of the new one

  bool isDone() const { return !error && !isNoFile; }
};

// Writes beside the target, flushes and renames over it. Owner, group, mode, access list and other
// names stay (on POSIX systems; on Windows attributes and access list); where another file cannot
// have them, the old one is overwritten while a copy "a.saving-XXXXXX.zmm" lies beside it. A link
// stays one.
Replacement replaceFile(const std::string& name, std::string_view bytes);

}  // namespace tolmer::host
