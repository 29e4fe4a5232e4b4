#include "report/html_report.h"

#include <algorithm>
#include <string>
#include <vector>

#include "base/markup_text.h"
#include "platform/graph/graph.h"
#include "platform/graph/svg_writer.h"
#include "platform/text_box.h"
#include "report/grid_table.h"
#include "report/headed_text.h"
#include "report/html_style.h"
#include "report/html_table.h"
#include "report/reading_order.h"
#include "state/model_variables.h"

namespace tolmer {
namespace {

struct ShownHtml {
  std::string title;  // of the display

  // The sentence that tells the graph stands below it, for everybody.
  std::string operator()(const Graph* graph) const {
    return "<figure>\n<figcaption><h2>" + markupText(title) + "</h2></figcaption>\n" +
           writeSvg(graph->picture(), graph->accessibleName(), graph->accessibleDescription()) +
           "<p class=\"spoken\">" + markupText(graph->accessibleDescription()) +
           "</p>\n</figure>\n";
  }

  std::string operator()(const Grid* grid) const { return tableHtml(displayTable(*grid), title); }

  std::string operator()(const TextBox* box) const {
    std::string html = "<h2>" + markupText(title) + "</h2>\n";
    for (const HeadedPart& part : headedParts(box->text())) {
      html += "<div class=\"prose\">\n";
      if (!part.heading.empty()) html += "<h3>" + markupText(part.heading) + "</h3>\n";
      for (const std::string_view paragraph : part.paragraphs)
        html += "<p>" + markupText(paragraph) + "</p>\n";
      html += "</div>\n";
    }
    return html;
  }
};

std::string displayHtml(const ReportedDisplay& display) {
  return "<section id=\"" + std::string(display.name) + "\">\n" +
         std::visit(ShownHtml{display.window->caption()}, display.window->shownControl()) +
         "</section>\n";
}

std::string contentsHtml(const std::vector<ReportedDisplay>& displays) {
  std::string html = "<nav aria-label=\"Contents\">\n<h2>Contents</h2>\n<ol>\n";
  for (const ReportedDisplay& display : displays)
    html += "<li><a href=\"#" + std::string(display.name) + "\">" +
            markupText(display.window->caption()) + "</a></li>\n";
  return html + "</ol>\n</nav>\n";
}

std::string predictorNames(const AnalysisState& state) {
  std::string names;
  for (int i = 2; i <= state.iNumPredictors + 1; ++i)
    names += (i > 2 ? ", " : "") + variableName(state, i);
  return names;
}

std::string fact(std::string_view name, std::string_view value) {
  return "<dt>" + markupText(name) + "</dt><dd>" + markupText(value) + "</dd>\n";
}

std::string factsHtml(const ReportRun& run, std::string_view date) {
  const AnalysisState& state = run.state();
  return "<dl class=\"facts\">\n" + fact("Data file", run.dataFile()) +
         fact("Cases", std::to_string(state.iNumCases)) +
         fact("Dependent variable", variableName(state, 1)) +
         fact(state.iNumPredictors == 1 ? "Independent variable" : "Independent variables",
              predictorNames(state)) +
         (state.bUseIntercept ? "" : fact("Intercept", "none")) + "<dt>Date</dt><dd><time>" +
         markupText(date) + "</time></dd>\n</dl>\n";
}

std::string messagesHtml(const ReportRun& run) {
  if (run.messages().empty()) return {};
  std::string html = "<div class=\"messages\">\n<h2>Messages</h2>\n";
  for (const std::string& text : run.messageTexts()) html += "<p>" + markupText(text) + "</p>\n";
  return html + "</div>\n";
}

// Empty elements are closed and every entity is one of XML: the page can be read as XML too.
std::string headHtml(const std::string& title) {
  return "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\"/>\n"
         "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"/>\n<title>" +
         title + "</title>\n<style>" + std::string(pageStyle) + "</style>\n</head>\n";
}

// Lists of cases come last, where they break no page that others share.
std::vector<ReportedDisplay> inPageOrder(ReportRun& run) {
  auto displays = inReadingOrder(run);
  std::stable_partition(displays.begin(), displays.end(),
                        [](const ReportedDisplay& display) { return !isCaseList(display); });
  return displays;
}

}  // namespace

std::string htmlReport(ReportRun& run, std::string_view date) {
  const std::string title = markupText("Multiple regression of " + variableName(run.state(), 1));
  const auto displays = inPageOrder(run);
  std::string html = headHtml(title) + "<body>\n<header>\n<h1>" + title + "</h1>\n" +
                     factsHtml(run, date) + "</header>\n<main>\n" + messagesHtml(run) +
                     "<section>\n<h2>Fitted Model</h2>\n<p class=\"equation\">" +
                     markupText(run.equation()) + "</p>\n</section>\n" + contentsHtml(displays);
  for (const ReportedDisplay& display : displays) html += displayHtml(display);
  return html + "</main>\n</body>\n</html>\n";
}

}  // namespace tolmer
