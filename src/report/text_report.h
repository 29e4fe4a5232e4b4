// The report for a terminal.
#pragma once

#include <string>

#include "report/report_document.h"

namespace tolmer {

// Messages of the run, the equation, then every display: the interpretation in paragraphs, tables
// as columns, graphs by the sentences that tell them, histograms and VIF chart with bars as well.
// UTF-8 in lines of 78 columns; with `coloured` also the terminal's colours.
std::string textReport(const ReportDocument& document);

}  // namespace tolmer
