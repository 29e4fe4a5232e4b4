#include "report/report_document.h"

#include <algorithm>

#include "base/program_version.h"
#include "base/text_encoding.h"
#include "data/working_copy.h"
#include "displays/case_words.h"
#include "engine/fitted_equation.h"
#include "insight/insight_tables.h"
#include "report/html_report.h"
#include "report/json_report.h"
#include "report/markdown_report.h"
#include "report/r_report.h"
#include "report/text_report.h"
#include "state/analysis_state.h"

namespace tolmer {
namespace {

// Parts in the order that a format has by itself. JSON keeps that of the table of displays; on a
// page lists of cases come last, where they break no sheet of paper that others share.
std::vector<ReportPart> usualParts(ReportFormat format) {
  std::vector<ReportPart> parts = allParts();
  if (format == ReportFormat::json)
    std::sort(parts.begin() + 1, parts.end());
  else if (format == ReportFormat::html)
    std::stable_partition(parts.begin(), parts.end(),
                          [](ReportPart part) { return !part || !part->listsCases; });
  return parts;
}

bool isFurther(ReportPart part) { return part == influencePart() || part == predictionsPart(); }

std::vector<ReportPart> chosenParts(const ReportRequest& request) {
  std::vector<ReportPart> asked = request.parts ? *request.parts : usualParts(request.format);
  if (request.newCases) asked.push_back(predictionsPart());
  std::vector<ReportPart> parts;
  for (const ReportPart part : asked) {
    const bool isLeftOut = (part && part->listsCases && request.caseLists == CaseLists::none) ||
                           (isFurther(part) && request.format == ReportFormat::json) ||
                           (part == predictionsPart() && !request.newCases);
    if (!isLeftOut && std::find(parts.begin(), parts.end(), part) == parts.end())
      parts.push_back(part);
  }
  return parts;
}

// On a page, where graphs are set among text, they are smaller, so that their letters keep the size
// of the text when a sheet of A4 takes them in.
ViewSize graphSize(ReportFormat format) {
  return format == ReportFormat::html ? ViewSize{720, 400} : ViewSize{960, 500};
}

// Keeps the first cases and those with a marked figure.
void shorten(TableContent& table, int cases) {
  constexpr int first = 20;
  const int before = table.rows();
  const auto isMarked = [](const TableCell& cell) { return cell.mark != CellMark::none; };
  table.keepRows([&](int row) {
    const auto cells = table.row(row);
    return table.caseOf(row) <= first || std::any_of(cells.begin(), cells.end(), isMarked);
  });
  if (table.rows() == before) return;
  const int shown = cases - (before - table.rows());
  table.notes.push_back(std::to_string(shown) + " of " + std::to_string(cases) +
                        " cases: the first " + std::to_string(first) + " and all that are marked.");
}

ReportedPart reportedPart(ReportPart part, const AnalysisState& state, const ReportRequest& request,
                          MessagePort& messages) {
  if (!part)
    return {part, std::string(captionOf(part)) + fitMark(state),
            FittedEquation{fittedEquation(state)}};
  ReportedPart reported{part, titleOf(*part, state), {}};
  if (isFurther(part)) {
    reported.content = TableContent();  // filled by the second fit
    return reported;
  }
  std::visit([&](auto&& content) { reported.content = std::move(content); },
             contentOf(*part, state, graphSize(request.format), messages));
  if (auto* graph = std::get_if<GraphContent>(&reported.content))
    graph->description += wordsOnSelected(state, *graph, request.selectedCases);
  return reported;
}

void addParts(ReportDocument& document, const ReportRequest& request) {
  MessageLog messages;
  for (const ReportPart part : chosenParts(request))
    document.parts.push_back(reportedPart(part, *document.state, request, messages));
  document.messages.insert(document.messages.end(), messages.boxes().begin(),
                           messages.boxes().end());
}

// Influence and predictions, or that there are none.
void addFurther(ReportDocument& document, const ReportRequest& request, Examination& examination) {
  document.hasNewCases = request.newCases.has_value();
  if (validFit(*document.state, examination)) document.fit = std::move(examination.fit);
  if (document.fit && request.newCases)
    if (auto predicted = predictCases(examination.data, *document.fit, *request.newCases))
      document.predictions = *std::move(predicted);
  for (ReportedPart& shown : document.parts) {
    if (!isFurther(shown.part)) continue;
    if (!document.fit)
      shown.content = Sections{{"No valid fit", "This needs a valid fit."}};
    else if (shown.part == influencePart())
      shown.content = influenceTable(*document.state, *document.fit);
    else
      shown.content = predictionTable(document.predictions);
  }
}

// Where there is a place for it, since the second fit takes its time.
void addFindings(ReportDocument& document, const ReportRequest& request) {
  std::vector<ShownTable> tables;
  FittedEquation* equation = nullptr;
  for (ReportedPart& shown : document.parts) {
    if (const auto* table = std::get_if<TableContent>(&shown.content))
      tables.push_back({shown.part->form, table});
    else if (auto* found = std::get_if<FittedEquation>(&shown.content))
      equation = found;
  }
  const bool hasFurther = std::ranges::any_of(document.parts, isFurther, &ReportedPart::part);
  const bool needsAll = hasFurther || request.format == ReportFormat::json;
  if (!equation && !needsAll) return;
  Examination examination =
      examine(*document.state, tables, needsAll ? Extent::all : Extent::noticeable);
  document.notes = notesOf(*document.state, examination);
  document.health = std::move(examination.health);
  for (const Note& note : document.notes)
    if (equation) equation->notes.push_back(onOneLine(note.text));
  addFurther(document, request, examination);
}

// After the notes, which are held against whole tables.
void shortenLists(ReportDocument& document, const ReportRequest& request) {
  if (request.caseLists != CaseLists::shortened || request.format == ReportFormat::json) return;
  for (ReportedPart& shown : document.parts)
    if (auto* table = std::get_if<TableContent>(&shown.content); table && shown.part->listsCases)
      shorten(*table, document.state->iNumCases);
}

// Without its folders, which are no reader's business.
std::string nameOfFile(std::string_view file) {
  return onOneLine(std::string(file.substr(file.find_last_of("/\\") + 1)));
}

std::string casesText(const AnalysisState& state) {
  const int used = state.iNumCases;
  const int leftOut = static_cast<int>(state.uOrigin.leftOut.size());
  if (leftOut == 0) return std::to_string(used) + " read, all of them used";
  return std::to_string(used + leftOut) + " read, " + std::to_string(used) + " used, " +
         std::to_string(leftOut) + " left out";
}

std::string predictorNames(const AnalysisState& state) {
  std::string names;
  for (int i = 2; i <= state.iNumPredictors + 1; ++i)
    names += (i > 2 ? ", " : "") + variableName(state, i);
  return onOneLine(names);
}

std::vector<ReportFact> factsOf(const AnalysisState& state, const ReportRequest& request,
                                const ReportCircumstances& around) {
  std::vector<ReportFact> facts;
  const auto add = [&facts](const char* name, std::string value) {
    if (!value.empty()) facts.push_back({name, std::move(value)});
  };
  add("Author", onOneLine(request.author));
  if (state.bInfoAvailable && !state.tVarDesc.empty()) add("Data", onOneLine(state.tVarDesc[0]));
  add("Data file", state.uOrigin.copy                  ? onOneLine(dataSetName(state))
                   : state.tDataFileName == noDataFile ? ""
                                                       : nameOfFile(state.tDataFileName));
  add("Cases", casesText(state));
  add("Dependent variable", onOneLine(variableName(state, 1)));
  add(state.iNumPredictors == 1 ? "Independent variable" : "Independent variables",
      predictorNames(state));
  for (int i = 1; i <= state.iNumPredictors + 1; ++i)
    if (const std::string label = givenLabel(state, state.iModelCol[i]); !label.empty())
      facts.push_back({"Meaning of " + onOneLine(variableName(state, i)), onOneLine(label)});
  add("Intercept", state.bUseIntercept ? "" : "none");
  add("Program", programAndVersion());
  add("Date", around.date);
  return facts;
}

std::vector<std::string> linesOf(std::string text) {
  std::erase(text, '\r');
  std::vector<std::string> lines;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    lines.push_back(onOneLine(text.substr(at, end - at)));
    at = end + 1;
  }
  return lines;
}

}  // namespace

std::string givenLabel(const AnalysisState& state, int column) {
  const bool isGiven = state.bInfoAvailable && state.tDataFileInfoName == noDataFile;
  const auto at = static_cast<std::size_t>(column);
  return isGiven && at < state.tVarDesc.size() ? state.tVarDesc[at] : std::string();
}

std::string usualTitle(const AnalysisState& state) {
  return onOneLine("Multiple regression of " + variableName(state, 1));
}

ReportDocument reportDocument(const AnalysisState& state, const ReportRequest& request,
                              const ReportCircumstances& around) {
  ReportDocument document;
  document.state = &state;
  document.title = request.title.empty() ? usualTitle(state) : onOneLine(request.title);
  document.remarks = linesOf(request.remarks);
  document.facts = factsOf(state, request, around);
  document.messages = around.messages;
  document.selectedCases = request.selectedCases;
  document.paper = request.paper;
  document.isColoured = request.isColoured;
  if (request.format == ReportFormat::r) return document;
  addParts(document, request);
  addFindings(document, request);
  shortenLists(document, request);
  return document;
}

std::vector<std::string> messageTexts(const ReportDocument& document) {
  std::vector<std::string> texts;
  const auto& boxes = document.messages;
  for (std::size_t i = 0, next = 0; i < boxes.size(); i = next) {
    const std::string& text = boxes[i].box.text;
    for (next = i + 1; next < boxes.size() && boxes[next].box.text == text;) ++next;
    texts.push_back(next - i == 1 ? text : text + " (" + std::to_string(next - i) + " times)");
  }
  return texts;
}

void writeReport(const AnalysisState& state, const ReportRequest& request,
                 const ReportCircumstances& around, const ReportSink& sink) {
  const ReportDocument document = reportDocument(state, request, around);
  switch (request.format) {
    case ReportFormat::json:
      return writeJsonReport(document, sink);
    case ReportFormat::html:
      return sink(htmlReport(document));
    case ReportFormat::markdown:
      return sink(markdownReport(document));
    case ReportFormat::r:
      return sink(rReport(document));
    case ReportFormat::text:
      break;
  }
  sink(textReport(document));
}

std::string makeReport(const AnalysisState& state, const ReportRequest& request,
                       const ReportCircumstances& around) {
  std::string report;
  writeReport(state, request, around, [&report](std::string_view piece) { report += piece; });
  return report;
}

}  // namespace tolmer
