// Compiles the source of a notebook: nbocompile SOURCE OUTPUT --root FOLDER.
#include <cstdio>
#include <string>
#include <vector>

#include "base/program_version.h"
#include "bookcompiler/book_compiler.h"
#include "system/running_program.h"

namespace {

constexpr const char* usage =
    "Usage: nbocompile SOURCE OUTPUT --root FOLDER\n\n"
    "Compiles the source of a notebook and checks it with its data and pictures.\n"
    "  SOURCE         the notebook's text\n"
    "  OUTPUT         the compiled notebook, which tolmer reads\n"
    "  --root FOLDER  where the course's folders tolmod and data lie\n"
    "  --version      the version\n"
    "  --help         this text\n";

}  // namespace

int main(int argumentCount, char** arguments) {
  const auto words = tolmer::host::programWords(argumentCount, arguments);
  if (const auto answer = tolmer::answerAboutProgram(words, "nbocompile", usage)) {
    std::fputs(answer->c_str(), stdout);
    return 0;
  }
  std::string report;
  const int status = tolmer::compileNotebook(words, report);
  std::fputs(report.c_str(), stderr);
  return status;
}
