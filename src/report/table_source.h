// The table that a report is made of, from any file that can be read.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/error.h"
#include "foreign/import_process.h"
#include "report/options.h"
#include "textimport/import_choice.h"
#include "textimport/named_table.h"

namespace tolmer {

struct TableSource {
  std::function<Result<std::string>()> standardInput;  // all of it
  std::optional<ImportReader> reader{};  // of files of other programs, if not the usual one
};

struct SourcedTable {
  std::string name;  // of the file, or what stands for standard input
  NamedTable table;
  std::string title{};                          // of the data, where the file has one
  std::map<std::string, std::string> labels{};  // what columns mean, by their names; likewise
};

// The columns that the options want of the options' file. Where the import would ask somebody and
// no option answers, that is the error.
Result<SourcedTable> readTable(const ReportOptions& options, const TableSource& source);

// The same of text; `name` is what errors name.
Result<NamedTable> tableFromText(const std::string& name, std::string bytes,
                                 const ReportOptions& options);

// What a file has to choose from.
struct ListedTable {
  std::string name;
  std::string title{};
  std::vector<SheetInfo> sheets{};  // that hold anything
  std::string sheet{};              // the one whose variables these are, where there are several
  int cases = 0;
  std::vector<ImportVariable> variables{};
};
// Nobody is asked which sheet; where it is open what divides the fields or which row has the names,
// that is the error.
Result<ListedTable> listTable(const ReportOptions& options, const TableSource& source);

}  // namespace tolmer
