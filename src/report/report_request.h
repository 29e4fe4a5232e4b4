// What is asked of a report: its form, what stands in its head, and which displays it holds.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "displays/display_list.h"
#include "insight/prediction.h"
#include "tables/html_writer.h"

namespace tolmer {

enum class ReportFormat { text, json, html, markdown, r };

// Lists of cases: with all cases, with the first ones and all that are marked, or left out.
enum class CaseLists { whole, shortened, none };

// A display, or null for the fitted equation.
using ReportPart = const Display*;

struct ReportRequest {
  ReportFormat format = ReportFormat::text;
  // UTF-8, empty for none. Remarks may have lines.
  std::string title{};  // empty: "Multiple regression of" the dependent variable
  std::string author{};
  std::string remarks{};
  // In their order; a part that is named twice stands once. Without it all of them, in the order
  // that suits the format. An R script is always whole.
  std::optional<std::vector<ReportPart>> parts{};
  CaseLists caseLists = CaseLists::whole;  // of parts that list cases; JSON has them whole or not
  Paper paper = Paper::a4;
  bool isColoured = false;             // text with the colours of a terminal
  std::vector<int> selectedCases{};    // stand out in graphs of pages; rising, from 1
  std::optional<NewCases> newCases{};  // to predict; not in an R script
};

// All parts in reading order: the equation, then the displays.
std::vector<ReportPart> allParts();
// What is no display, and a part only where it is named: the influence of the cases; the
// predictions of new cases, which stand last where there are such cases and nobody names them. JSON
// has keys of its own for both.
ReportPart influencePart();
ReportPart predictionsPart();
// "equation", or the word of a display; nullopt where no part is called so.
std::optional<ReportPart> partCalled(std::string_view word);
std::string_view wordOf(ReportPart part);
// For people: "Fitted Model", or the display's caption.
std::string_view captionOf(ReportPart part);

}  // namespace tolmer
