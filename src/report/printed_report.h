// The report on paper.
#pragma once

#include "platform/paper/printed_pages.h"
#include "report/report_document.h"

namespace tolmer {

// The pages of a document that was made for the format of a page. A desktop prints them or writes
// them to PDF.
PrintedPages printedReport(const ReportDocument& document);

}  // namespace tolmer
