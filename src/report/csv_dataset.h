// A table's numbers as a data set.
#pragma once

#include "base/error.h"
#include "data/working_copy.h"
#include "report/csv_reader.h"
#include "report/options.h"

namespace tolmer {

// All numeric columns of the table, in its order, without a model yet. A column without any number
// is text: it can give labels and is left out otherwise, unless the options put it into the model.
// In any other column every cell must be a number. Labels are taken where the
// options name a column of the table for them.
Result<WorkingCopy> dataSetFromTable(const CsvTable& table, const ReportOptions& options);

}  // namespace tolmer
