#include "base/paths.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

#include "system/host_path.h"
#include "system/running_program.h"

namespace tolmer {
namespace {

namespace fs = std::filesystem;

bool sameInOtherCase(const std::string& a, const std::string& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](unsigned char x, unsigned char y) {
    return std::tolower(x) == std::tolower(y);
  });
}

// The entry of `folder` called `name`, in whatever case; empty where there is none. Of several,
// the first in byte order, so that the choice does not hang on the order of the directory.
std::string entryInAnyCase(const fs::path& folder, const std::string& name) {
  std::string found;
  std::error_code failed;
  for (fs::directory_iterator entry(folder, failed), end; !failed && entry != end;
       entry.increment(failed)) {
    std::string candidate = host::nameOf(entry->path().filename());
    if (sameInOtherCase(candidate, name) && (found.empty() || candidate < found))
      found = std::move(candidate);
  }
  return found;
}

std::string withSlashes(std::string_view coursePath) {
  std::string text(coursePath);
  std::replace(text.begin(), text.end(), '\\', '/');
  return text;
}

// Links to the program are followed; empty where the system does not tell.
fs::path runningFolder() { return host::pathOf(host::runningProgram()).parent_path(); }

}  // namespace

std::string tAddBackSlash(std::string_view tStringToAddTo) {
  std::string text(tStringToAddTo);
  if (!text.ends_with('\\')) text += '\\';
  return text;
}

std::string tRemoveBackSlash(std::string_view tStringToProcess) {
  if (tStringToProcess.ends_with('\\')) tStringToProcess.remove_suffix(1);
  return std::string(tStringToProcess);
}

std::string tParentFolder(std::string_view tPath) {
  const auto cut = tPath.find_last_of("\\:");
  return cut == std::string_view::npos ? std::string() : std::string(tPath.substr(0, cut + 1));
}

std::string hostPath(std::string_view coursePath) {
  std::string text = withSlashes(coursePath);
  std::error_code failed;
  if (fs::exists(host::pathOf(text), failed)) return text;

  fs::path resolved;
  for (const fs::path& part : host::pathOf(text)) {
    fs::path next = resolved / part;
    if (!fs::exists(next, failed)) {
      const std::string other =
          entryInAnyCase(resolved.empty() ? fs::path(".") : resolved, host::nameOf(part));
      if (other.empty()) return text;
      next = resolved / host::pathOf(other);
    }
    resolved = std::move(next);
  }
  return host::nameOf(resolved);
}

std::string coursePath(std::string_view hostPath) {
  std::string text(hostPath);
  std::replace(text.begin(), text.end(), '/', '\\');
  return text;
}

std::string programPart(const std::string& name) {
  std::error_code failed;
  const fs::path here = runningFolder();
  const std::string file = name + host::programEnding();
  for (const fs::path& place : {here / file, here.parent_path() / "libexec" / "tolmer" / file})
    if (fs::exists(place, failed)) return host::nameOf(place);
  return host::nameOf(here / file);
}

std::string programFolder() {
  std::error_code failed;
  const fs::path here = runningFolder();
  if (here.empty()) return ".";
  const fs::path installed = here.parent_path() / "share" / "tolmer" / "tolmod";
  if (!fs::exists(here / "tolmod.nbo", failed) && fs::exists(installed, failed))
    return host::nameOf(installed);
  return host::nameOf(here);
}

}  // namespace tolmer
