// The report for scripts; docs/report-format.md tells what it holds.
#pragma once

#include <string>

#include "report/report_run.h"

namespace tolmer {

std::string jsonReport(const ReportRun& run);

}  // namespace tolmer
