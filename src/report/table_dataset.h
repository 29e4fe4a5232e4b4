// A table's numbers as a data set.
#pragma once

#include <string>

#include "base/error.h"
#include "data/working_copy.h"
#include "report/options.h"
#include "textimport/named_table.h"

namespace tolmer {

// What the options want of a table: their variables, or all of it where they name no predictors.
WantedColumns columnsOf(const ReportOptions& options);

// The options with the names of the dummies in place of the columns that have become dummies.
Result<ReportOptions> withDummies(ReportOptions options, const NamedTable& table);

// All variables of the table, in its order, without a model yet. Cases with a gap in a variable
// that the options put into the model are left out, and the origin tells them. Labels are taken
// where the options name a column of the table for them. `fileName` is what errors name.
Result<WorkingCopy> dataSetFromTable(const NamedTable& table, const std::string& fileName,
                                     const ReportOptions& options);

}  // namespace tolmer
