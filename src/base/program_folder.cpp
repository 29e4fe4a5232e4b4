#include "base/program_folder.h"

#include <filesystem>

namespace tolmer {

std::string programFolder() {
  namespace fs = std::filesystem;
  std::error_code failed;
  const fs::path here = fs::read_symlink("/proc/self/exe", failed).parent_path();
  if (failed) return ".";
  const fs::path installed = here.parent_path() / "share" / "tolmer" / "tolmod";
  if (!fs::exists(here / "tolmod.nbo", failed) && fs::exists(installed, failed))
    return installed.string();
  return here.string();
}

}  // namespace tolmer
