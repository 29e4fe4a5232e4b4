// A table of cases that are not among the data.
#pragma once

#include <string>
#include <vector>

#include "base/error.h"
#include "insight/prediction.h"
#include "report/options.h"
#include "report/table_source.h"

namespace tolmer {

// Reads the columns of these names from the options' table of new cases, which may have others and
// is read as the data are, but for a sheet's name. Numbers are held as singles, as data are, so
// that a case of the data gets its own fitted value and leverage. Errors: a file that cannot be
// read, a missing column or one named twice, a gap, each with its place.
Result<NewCases> readNewCases(const ReportOptions& options, const std::vector<std::string>& names,
                              const TableSource& source);

}  // namespace tolmer
