// A table's numbers as a data set with a model.
#pragma once

#include "base/error.h"
#include "data/working_copy.h"
#include "report/csv_table.h"
#include "report/options.h"

namespace tolmer {

// What the command line asks of a table: the fault of either.
struct ModelFault {
  Error error;
  bool ofCommandLine = false;  // a name that the table does not have; else the table's own fault
};

// All numeric columns of the table, in its order, with the model of the options; predictors are
// ascending, whatever the order of the options. A column without any number is text: it can give
// labels and is left out otherwise. In any other column every cell must be a number.
std::variant<WorkingCopy, ModelFault> dataSetFromTable(const CsvTable& table,
                                                       const ReportOptions& options);

}  // namespace tolmer
