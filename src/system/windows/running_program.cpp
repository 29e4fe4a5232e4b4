#include "system/running_program.h"

#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <filesystem>

#include "system/windows/wide.h"

#include <shellapi.h>  // needs what stands above

namespace tolmer::host {

std::string runningProgram() {
  std::wstring name(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length =
        ::GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
    if (length < name.size()) {
      name.resize(length);
      return nameOf(name);
    }
    name.resize(2 * name.size());
  }
}

// The arguments themselves came through the system's code page, which may lack their letters.
std::vector<std::string> programWords(int /*argumentCount*/, char** /*arguments*/) {
  std::vector<std::string> words;
  int count = 0;
  wchar_t** all = ::CommandLineToArgvW(::GetCommandLineW(), &count);
  for (int i = 1; all && i < count; ++i) {
    const std::u8string word = std::filesystem::path(all[i]).u8string();
    words.emplace_back(word.begin(), word.end());
  }
  ::LocalFree(all);
  return words;
}

std::string programEnding() { return ".exe"; }

// A console takes colours by escape sequences since Windows 10, once it is asked to.
bool outputIsTerminal() {
  const HANDLE output = ::GetStdHandle(STD_OUTPUT_HANDLE);
  DWORD mode = 0;
  if (::GetConsoleMode(output, &mode) == 0) return false;
  ::SetConsoleOutputCP(CP_UTF8);
  return ::SetConsoleMode(output, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

void makeStreamsBinary() {
  for (std::FILE* stream : {stdin, stdout, stderr}) ::_setmode(::_fileno(stream), _O_BINARY);
}

void keepMemory(int) {}

void takeLargePages(int) {}

std::tm localTime(std::time_t seconds) {
  std::tm parts{};
  ::localtime_s(&parts, &seconds);
  return parts;
}

std::tm universalTime(std::time_t seconds) {
  std::tm parts{};
  ::gmtime_s(&parts, &seconds);
  return parts;
}

}  // namespace tolmer::host
