// The command line of the report program.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"
#include "report/import_options.h"
#include "report/report_request.h"
#include "textimport/named_table.h"

namespace tolmer {

// The axes of one scatter plot, as they are written.
struct PlotRequest {
  int plot = 0;  // 1 to 3
  std::string x;
  std::string y;
  friend bool operator==(const PlotRequest&, const PlotRequest&) = default;
};

struct ReportOptions {
  std::string file;  // table to analyse, "-" for standard input; empty for a course data set
  std::string y;     // dependent variable
  std::vector<std::string> x;                     // independent variables; empty for all others
  std::string labels;                             // column of case labels; empty for none
  std::vector<std::string> columns;               // all that is read; empty for all there are
  std::vector<std::string> dummies;               // columns that become dummy variables
  std::map<std::string, std::string> references;  // of some of these: the category without one
  // What of these the table has made; for the table of new cases, which is read after it.
  std::map<std::string, DummyColumns> madeDummies{};
  std::string where;     // the condition that cases have to meet; empty for none
  int first = 0;         // so many cases at most; 0 for all
  int every = 1;         // of those the first and each so many-th after it
  ImportOptions import;  // how the file is read, where that is in doubt
  bool intercept = true;
  std::vector<PlotRequest> plots;  // in order: of two for one plot the later one counts
  int example = 0;                 // number of a scenario of the course's examples, from 1
  bool defaultExample = false;
  bool list = false;          // the variables of the file, and no report
  std::string predict;        // table of new cases; empty for none
  std::string programFolder;  // where the course's notebook lies; empty: beside the program
  ReportRequest request;
  bool formatIsGiven = false;  // else the ending of outputFile decides
  std::string outputFile;      // empty: standard output
  std::string answer;          // to --help or --version: all there is to do
};

// Words without the program's name. Where they ask for help or the version nothing else is looked
// at. The error's text is one sentence about the word at fault.
Result<ReportOptions> parseOptions(const std::vector<std::string>& words);

// The fields of one line of separated values, blanks around them removed. A field that begins with
// a double quote ends at the next one that is not doubled; any other may hold quotes as they are.
std::vector<std::string> fieldsOfList(std::string_view list, char separator = ',');

// The text of --help.
extern const char* const reportUsage;

}  // namespace tolmer
