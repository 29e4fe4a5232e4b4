// Files of SPSS (sav, zsav) and Stata (dta), read by ReadStat.
#pragma once

#include <string_view>

#include "base/error.h"
#include "foreign/cut_table.h"

namespace tolmer {

enum class StatisticsFormat { sav, dta };

// All variables with their labels, those of their values and the codes for missing values. Numbers
// in single precision come as the shortest decimal that gives the same single.
Result<CutBook> readStatistics(std::string_view bytes, StatisticsFormat format,
                               const CutRequest& request);

}  // namespace tolmer
