#include "system/running_program.h"

#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
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

void keepMemory(int bytes) {
  ::mallopt(M_MMAP_THRESHOLD, bytes);
  ::mallopt(M_TRIM_THRESHOLD, bytes);
  ::mallopt(M_TOP_PAD, 1 << 22);
}

void takeLargePages(int count) {
#ifdef MADV_HUGEPAGE
  constexpr std::size_t size = std::size_t{1} << 21;
  const std::size_t taken = size * static_cast<std::size_t>(count);
  // From where all blocks will come next.
  void* const next = std::malloc(taken + size);
  if (!next) return;
  const auto address = reinterpret_cast<std::uintptr_t>(next);
  std::free(next);
  const std::uintptr_t boundary = (address + size - 1) / size * size;
  // Where the system does not have them, pages come as ever.
  ::madvise(reinterpret_cast<void*>(boundary), taken, MADV_HUGEPAGE);
  // Never used, and so never fetched: what is taken after it lies in the large pages. It writes
  // there, which is too early for the advice.
  static void* gap = nullptr;
  if (!gap && boundary > address) gap = std::malloc(boundary - address);
#endif
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
