// The displays as a reader of the report takes them in.
#pragma once

#include <string_view>
#include <vector>

#include "report/report_run.h"

namespace tolmer {

// In words first, then the fit as a whole, its terms, the variables, the cases, and the graphs.
// Displays whose lists grow with the cases can be told by isCaseList.
std::vector<ReportedDisplay> inReadingOrder(ReportRun& run);

bool isCaseList(const ReportedDisplay& display);

}  // namespace tolmer
