// Reads one foreign file from its standard input and writes its table to its standard output, for
// the other programs: src/foreign/import_process.h starts it.
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include "base/program_version.h"
#include "foreign/cut_format.h"
#include "foreign/cut_request.h"
#include "foreign/file_kind.h"
#include "foreign/readers/confinement.h"
#include "foreign/readers/encodings.h"
#include "foreign/readers/read_foreign.h"

namespace {

constexpr const char* usage =
    "Usage: tolimport [--sheet=SHEET] [--head=N] [--rows=N] [--every=N] [--columns=N,N...] < "
    "FILE\n\n"
    "Reads another program's file for tolmer, which starts it, and writes its table.\n"
    "  --version  the version\n"
    "  --help     this text\n";

// The whole of a regular file; empty for anything else.
std::string_view standardInput() {
  struct stat facts {};
  if (::fstat(STDIN_FILENO, &facts) != 0 || !S_ISREG(facts.st_mode) || facts.st_size <= 0)
    return {};
  const auto size = static_cast<std::size_t>(facts.st_size);
  void* bytes = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, STDIN_FILENO, 0);
  return bytes == MAP_FAILED ? std::string_view()
                             : std::string_view(static_cast<const char*>(bytes), size);
}

tolmer::Result<tolmer::CutBook> read(std::string_view bytes, const tolmer::CutRequest& request) {
  try {
    return tolmer::readForeign(bytes, request);
  } catch (const std::bad_alloc&) {
    return tolmer::Error{"", "it needs more memory than a reader may have"};
  }
}

bool write(std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = ::write(STDOUT_FILENO, text.data(), text.size());
    if (written <= 0) return false;
    text.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> words(argv + 1, argv + argc);
  if (const auto answer = tolmer::answerAboutProgram(words, "tolimport", usage)) {
    std::fputs(answer->c_str(), stdout);
    return EXIT_SUCCESS;
  }
  const auto request = tolmer::requestFromWords(words);
  if (!request) {
    std::fprintf(stderr, "tolimport: %s\n", request.error().text.c_str());
    return EXIT_FAILURE;
  }
  const std::string_view bytes = standardInput();
  const auto kind = tolmer::kindOfFile(bytes);
  if (kind == tolmer::ForeignKind::sav || kind == tolmer::ForeignKind::dta)
    tolmer::prepareEncodings();
  if (!tolmer::confineProcess()) return EXIT_FAILURE;
  const bool written = write(tolmer::cutText(read(bytes, *request)));
  ::_exit(written ? EXIT_SUCCESS : EXIT_FAILURE);
}
