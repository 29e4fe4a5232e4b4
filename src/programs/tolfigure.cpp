// Makes the figures of the course: tolfigure LIST DATA-FOLDER OUTPUT-FOLDER.
#include <cstdio>
#include <string>
#include <vector>

#include "base/program_version.h"
#include "base/text_encoding.h"
#include "figures/course_figures.h"
#include "system/running_program.h"

namespace {

constexpr const char* usage =
    "Usage: tolfigure LIST DATA-FOLDER OUTPUT-FOLDER\n\n"
    "Draws the figures and tables of the course's texts.\n"
    "  LIST           names the figures, the data and models, and the displays\n"
    "  DATA-FOLDER    where the data lie\n"
    "  OUTPUT-FOLDER  takes a file for each figure\n"
    "  --version      the version\n"
    "  --help         this text\n";

int failed(const tolmer::Error& error) {
  std::fprintf(stderr, "tolfigure: %s\n", tolmer::onOneLine(error.message()).c_str());
  return 1;
}

int run(const std::vector<std::string>& words) {
  if (const auto answer = tolmer::answerAboutProgram(words, "tolfigure", usage)) {
    std::fputs(answer->c_str(), stdout);
    return 0;
  }
  if (words.size() != 3) return failed({"", "the words are LIST DATA-FOLDER OUTPUT-FOLDER"});
  const auto figures = tolmer::courseFigures(words[0]);
  if (!figures) return failed(figures.error());
  const auto error = tolmer::writeFigures(*figures, words[1] + "/", words[2] + "/");
  return error ? failed(*error) : 0;
}

}  // namespace

int main(int argc, char** argv) { return run(tolmer::host::programWords(argc, argv)); }
