// The report for scripts; docs/report-format.md tells what it holds.
#pragma once

#include <string>

#include "report/report_document.h"

namespace tolmer {

std::string jsonReport(const ReportDocument& document);

}  // namespace tolmer
