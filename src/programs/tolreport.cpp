// The report program: an analysis on the command line.
#include <array>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

#include "base/data_limits.h"
#include "base/paths.h"
#include "base/program_version.h"
#include "base/text_encoding.h"
#include "report/report_document.h"
#include "report/report_program.h"
#include "system/running_program.h"

namespace {

bool write(std::FILE* stream, std::string_view text) {
  return std::fwrite(text.data(), 1, text.size(), stream) == text.size() &&
         std::fflush(stream) == 0;
}

tolmer::Result<std::string> standardInput() {
  std::string bytes;
  std::array<char, 1 << 16> block{};
  while (const std::size_t length = std::fread(block.data(), 1, block.size(), stdin)) {
    bytes.append(block.data(), length);
    if (bytes.size() > tolmer::maxFileBytes) return tolmer::Error{"", "it is larger than 64 MB"};
  }
  if (std::ferror(stdin) != 0) return tolmer::Error{"", "it cannot be read"};
  return bytes;
}

int run(const std::vector<std::string>& words) {
  // no-color.org: the variable, whatever its value, asks for plain text.
  const bool coloured = tolmer::host::outputIsTerminal() && !std::getenv("NO_COLOR");
  bool isWritten = true;
  const tolmer::ReportSurroundings around{
      tolmer::programFolder,
      tolmer::today,
      coloured,
      standardInput,
      {},
      [&](std::string_view piece) { isWritten = isWritten && write(stdout, piece); },
      [](const std::string& told) { write(stderr, told); }};
  const tolmer::ReportOutcome outcome = tolmer::runReport(words, around);
  write(stderr, outcome.errors);
  if (isWritten && write(stdout, outcome.output)) return outcome.status;
  std::perror("tolreport: the report cannot be written");
  return tolmer::ReportOutcome::dataAtFault;
}

}  // namespace

int main(int argc, char** argv) {
  tolmer::host::keepMemory(1 << 26);
  tolmer::host::makeStreamsBinary();
  std::setvbuf(stdout, nullptr, _IONBF, 0);  // what is written comes in large pieces
  try {
    return run(tolmer::host::programWords(argc, argv));
  } catch (const std::exception& fault) {
    std::fprintf(stderr, "tolreport: %s\n", tolmer::onOneLine(fault.what()).c_str());
    return tolmer::ReportOutcome::dataAtFault;
  }
}
