// The analysis as a script for R, which makes it anew.
#pragma once

#include <string>

#include "report/report_document.h"

namespace tolmer {

// Data, model, intervals, variance inflation, residuals and plots in base R; the model object is
// called "fit". No text of the document is code: names stand in backquotes, texts in comments and
// strings. The script rounds its data to single precision, as the record holds
// them.
std::string rReport(const ReportDocument& document);

}  // namespace tolmer
