#include "report/html_report.h"

#include <algorithm>

#include "base/markup_text.h"
#include "platform/graph/graph.h"
#include "platform/graph/svg_writer.h"
#include "platform/text_box.h"
#include "report/display_table.h"
#include "report/grid_table.h"

namespace tolmer {
namespace {

constexpr std::string_view style = R"(
:root { color-scheme: light; }
body { font: 16px/1.5 "Noto Sans", system-ui, sans-serif; color: #222; background: #fff;
  max-width: 60rem; margin: 2rem auto; padding: 0 1.5rem; }
h1 { font-size: 1.6rem; line-height: 1.25; margin: 0 0 .25rem; }
h2 { font-size: 1.15rem; margin: 2rem 0 .5rem; }
.source { color: #555; margin: 0 0 1.5rem; overflow-wrap: anywhere; }
.equation { font-size: 1.1rem; background: #f4f6f8; border-left: 4px solid #3465a4;
  padding: .75rem 1rem; overflow-wrap: anywhere; }
.message { background: #fff3cd; border-left: 4px solid #b58900; padding: .5rem 1rem; }
.wide { overflow-x: auto; }
table { border-collapse: collapse; font-variant-numeric: tabular-nums; }
th, td { padding: .3rem .75rem; border-bottom: 1px solid #ddd; white-space: nowrap;
  font-weight: normal; text-align: left; }
th { font-weight: 600; background: #f0f0f0; }
.right { text-align: right; }
.centre { text-align: center; }
.empty { border: 0; background: none; }
figure { margin: 0; }
svg { max-width: 100%; height: auto; }
@media print {
  body { margin: 0; padding: 0; max-width: none; font-size: 10pt; }
  h2 { break-after: avoid; }
  table, figure, .equation { break-inside: avoid; }
  th, td { print-color-adjust: exact; -webkit-print-color-adjust: exact; }
}
)";

std::string_view alignClass(Align align) {
  if (align == Align::right) return "right";
  return align == Align::centre ? "centre" : "";
}

// A cell; heads of columns stand in the first row, heads of rows in the first column.
std::string cellHtml(const DisplayCell& cell, std::string_view look, bool inFirstRow,
                     bool inFirstColumn) {
  const bool isHead = !cell.text.empty() && cell.isHeading() && (inFirstRow || inFirstColumn);
  std::string html = isHead ? "<th" : "<td";
  if (isHead) html += inFirstRow ? " scope=\"col\"" : " scope=\"row\"";
  if (!look.empty()) html += " class=\"" + std::string(look) + "\"";
  if (cell.isMarked()) html += " style=\"background:" + backName(cell.back) + "\"";
  return html + ">" + markupText(cell.text) + (isHead ? "</th>" : "</td>");
}

// Rows between the parts of a table, and the key to its colours, stand on the page's ground.
bool isLined(const std::vector<DisplayCell>& row) {
  return std::any_of(row.begin(), row.end(), [](const DisplayCell& cell) {
    return !cell.text.empty() && !cell.isMarked();
  });
}

std::string rowHtml(const std::vector<DisplayCell>& row, const std::vector<DisplayCell>& alignedAs,
                    bool isFirst) {
  const bool lined = isLined(row);
  std::string html = "<tr>";
  for (std::size_t i = 0; i < row.size(); ++i)
    html += cellHtml(row[i], lined || row[i].isMarked() ? alignClass(alignedAs[i].align) : "empty",
                     isFirst, i == 0);
  return html + "</tr>\n";
}

std::string tableHtml(const DisplayTable& table) {
  std::string html = "<div class=\"wide\"><table>\n";
  for (const auto& row : table.rows) {
    const bool isFirst = &row == &table.rows.front();
    html += rowHtml(row, isFirst && table.rows.size() > 1 ? table.rows[1] : row, isFirst);
  }
  return html + "</table></div>\n";
}

struct ShownHtml {
  std::string operator()(const Graph* graph) const {
    return "<figure>" +
           writeSvg(graph->picture(), graph->accessibleName(), graph->accessibleDescription()) +
           "</figure>\n";
  }
  std::string operator()(const Grid* grid) const { return tableHtml(displayTable(*grid)); }
  std::string operator()(const TextBox* box) const {
    return "<p>" + markupText(box->text()) + "</p>\n";
  }
};

std::string displayHtml(const ReportedDisplay& display) {
  return "<h2>" + markupText(display.window->caption()) + "</h2>\n" +
         std::visit(ShownHtml{}, display.window->shownControl());
}

std::string sourceHtml(const AnalysisState& state, std::string_view date) {
  return "<p class=\"source\">Data: " + markupText(state.tDataFileName) + " &middot; " +
         std::to_string(state.iNumCases) + (state.iNumCases == 1 ? " case" : " cases") +
         " &middot; <time>" + markupText(date) + "</time></p>\n";
}

std::string titleOf(const AnalysisState& state) {
  const auto column = static_cast<std::size_t>(state.iModelCol.size() > 1 ? state.iModelCol[1] : 0);
  return "Multiple regression" +
         (column < state.tVarName.size() ? " of " + state.tVarName[column] : std::string());
}

// Tables first, as a reader wants them: coefficients, analysis of variance, then the graphs.
std::vector<ReportedDisplay> inReadingOrder(ReportRun& run) {
  auto displays = run.displays();
  std::stable_partition(displays.begin(), displays.end(), [](const ReportedDisplay& display) {
    return !std::holds_alternative<const Graph*>(display.window->shownControl());
  });
  return displays;
}

}  // namespace

std::string htmlReport(ReportRun& run, std::string_view date) {
  const AnalysisState& state = run.state();
  const std::string title = markupText(titleOf(state));
  std::string html = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n";
  html += "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n";
  html += "<title>" + title + "</title>\n<style>" + std::string(style) + "</style>\n";
  html += "</head>\n<body>\n<h1>" + title + "</h1>\n" + sourceHtml(state, date);
  for (const AnsweredBox& message : run.messages())
    html += "<p class=\"message\">" + markupText(message.box.text) + "</p>\n";
  html += "<p class=\"equation\">" + markupText(run.equation()) + "</p>\n";
  for (const ReportedDisplay& display : inReadingOrder(run)) html += displayHtml(display);
  return html + "</body>\n</html>\n";
}

}  // namespace tolmer
