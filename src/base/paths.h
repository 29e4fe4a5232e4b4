// Course paths are written with backslashes and in any case; the host's are not.
#pragma once

#include <string>
#include <string_view>

namespace tolmer {

// With a final backslash, added if there is none.
std::string tAddBackSlash(std::string_view tStringToAddTo);

// Without the final backslash, if there is one; only one is taken away.
std::string tRemoveBackSlash(std::string_view tStringToProcess);

// The path cut behind its last "\" or ":" (the parent folder with its separator); empty where
// there is neither.
std::string tParentFolder(std::string_view tPath);

// The host's spelling of a course path: backslashes become the host's separator, and where no file
// of the exact name exists, the same name in other case is taken, part by part. A path of which no
// spelling exists comes back with separators changed only.
std::string hostPath(std::string_view coursePath);

// The course spelling of a host path: every separator a backslash.
std::string coursePath(std::string_view hostPath);

// The folder with the compiled notebook: that of the running program in a build tree, and
// ../share/tolmer/tolmod beside an installed one. Host spelling, no final separator.
std::string programFolder();

// A program or module that belongs to the running one: beside it in a build tree, in
// ../libexec/tolmer beside an installed one; never where the user happens to be.
std::string programPart(const std::string& name);

}  // namespace tolmer
