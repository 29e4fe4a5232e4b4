// The report program but for its process: command line in, texts and exit status out.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/error.h"
#include "foreign/import_process.h"
#include "report/report_document.h"

namespace tolmer {

// What the program finds around it. The functions are asked where a report needs them, since they
// read files of the system.
struct ReportSurroundings {
  std::function<std::string()>
      programFolder;                  // of the course, unless the command line names another
  std::function<std::string()> date;  // as the page prints it
  bool isColoured = false;            // standard output is a terminal that shows colours
  std::function<Result<std::string>()> standardInput{};  // all of it, where it is to be the data
  std::optional<ImportReader> reader{};  // of files of other programs, if not its own
  // Where a report without a file goes piece by piece, and before it what is told of the data.
  // Without them both are in the outcome.
  ReportSink output{};
  std::function<void(const std::string&)> errors{};
};

struct ReportOutcome {
  static constexpr int done = 0;
  static constexpr int dataAtFault = 1;
  static constexpr int usageAtFault = 2;

  int status = done;
  std::string output;  // for standard output
  std::string errors;  // for standard error
};

ReportOutcome runReport(const std::vector<std::string>& words, const ReportSurroundings& around);

}  // namespace tolmer
