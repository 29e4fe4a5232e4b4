#include "system/running_program.h"

#include <malloc.h>
#include <unistd.h>

#include <filesystem>

#include "system/host_path.h"

namespace tolmer::host {

std::string runningProgram() {
  std::error_code failed;
  return nameOf(std::filesystem::read_symlink("/proc/self/exe", failed));
}

std::vector<std::string> programWords(int argumentCount, char** arguments) {
  return {arguments + 1, arguments + argumentCount};
}

std::string programEnding() { return {}; }

bool outputIsTerminal() { return ::isatty(STDOUT_FILENO) == 1; }

void makeStreamsBinary() {}

void keepMemory() {
  constexpr int most = 1 << 26;
  ::mallopt(M_MMAP_THRESHOLD, most);
  ::mallopt(M_TRIM_THRESHOLD, most);
  ::mallopt(M_TOP_PAD, 1 << 22);
}

std::tm localTime(std::time_t seconds) {
  std::tm parts{};
  ::localtime_r(&seconds, &parts);
  return parts;
}

std::tm universalTime(std::time_t seconds) {
  std::tm parts{};
  ::gmtime_r(&seconds, &parts);
  return parts;
}

}  // namespace tolmer::host
