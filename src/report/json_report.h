// The report for scripts; docs/report-format.md tells what it holds.
#pragma once

#include <string>

#include "report/report_document.h"

namespace tolmer {

// Piece by piece, since it is long.
void writeJsonReport(const ReportDocument& document, const ReportSink& sink);

}  // namespace tolmer
