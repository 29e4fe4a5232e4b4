// The report as a page.
#pragma once

#include <string>
#include <string_view>

#include "report/report_document.h"

namespace tolmer {

// One page that needs nothing beside it: equation, tables as tables, graphs as SVG, messages of
// the run. `date` as it is to be printed.
std::string htmlReport(const ReportDocument& document);

}  // namespace tolmer
