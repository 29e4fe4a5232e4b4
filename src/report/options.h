// The command line of the report program.
#pragma once

#include <string>
#include <vector>

#include "base/error.h"

namespace tolmer {

enum class ReportFormat { text, json, html };

struct ReportOptions {
  std::string file;            // table to analyse; empty for a course data set
  std::string y;               // dependent variable
  std::vector<std::string> x;  // independent variables; empty for all others
  std::string labels;          // column of case labels; empty for none
  bool intercept = true;
  int example = 0;  // number of a scenario of the course's examples, from 1
  bool defaultExample = false;
  std::string programFolder;  // where the course's notebook lies; empty: beside the program
  ReportFormat format = ReportFormat::text;
  bool help = false;
};

// Words without the program's name. The error's text is one sentence about the word at fault.
Result<ReportOptions> parseOptions(const std::vector<std::string>& words);

// The text of --help.
extern const char* const reportUsage;

}  // namespace tolmer
