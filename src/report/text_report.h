// The report for a terminal.
#pragma once

#include <string>

#include "report/report_run.h"

namespace tolmer {

// Equation, analysis of variance, coefficients, histogram of residuals, messages of the run first.
// UTF-8; with `coloured` also the terminal's colours.
std::string textReport(ReportRun& run, bool coloured);

}  // namespace tolmer
