// The report as Markdown, for wikis and document converters.
#pragma once

#include <string>

#include "report/report_document.h"

namespace tolmer {

// Headings, paragraphs and pipe tables, as CommonMark with tables has them (GitHub, Pandoc). Graphs
// stand as the sentences that tell them, histograms and VIF chart also as tables. No text of the
// document is markup.
std::string markdownReport(const ReportDocument& document);

}  // namespace tolmer
