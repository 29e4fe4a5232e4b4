#include "system/running_program.h"

#include <emscripten.h>

#include <filesystem>

#include "system/host_path.h"

namespace tolmer::host {

// Under node, the file it was given; in a browser a program has none.
std::string runningProgram() {
  std::string name(4096, '\0');
  EM_ASM({ stringToUTF8(ENVIRONMENT_IS_NODE ? thisProgram : "", $0, $1); }, name.data(),
         name.size());
  name.resize(name.find('\0'));
  std::error_code failed;
  return name.empty() ? name : nameOf(std::filesystem::absolute(pathOf(name), failed));
}

std::vector<std::string> programWords(int argumentCount, char** arguments) {
  return {arguments + 1, arguments + argumentCount};
}

std::string programEnding() { return {}; }

// The C library takes whatever it writes to for one.
bool outputIsTerminal() { return false; }

void makeStreamsBinary() {}

void keepMemory(int) {}

void takeLargePages(int) {}

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
