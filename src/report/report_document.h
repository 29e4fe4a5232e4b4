// A report as one value, from which every format is written: its head and what each display says.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "notes/notes.h"
#include "report/report_request.h"

namespace tolmer {

// What a report tells beside the analysis.
struct ReportCircumstances {
  std::string date;                     // as it is to be printed
  std::vector<AnsweredBox> messages{};  // of the analysis
};

// What the user or the file of the data says of a column, or of the data for column 0; empty for
// data of the course, whose own files say it.
std::string givenLabel(const AnalysisState& state, int column);

struct ReportFact {
  std::string name;
  std::string value;
};

struct FittedEquation {
  std::string text;
  std::vector<std::string> notes{};  // sentences, in order of weight
};

struct ReportedPart {
  ReportPart part;
  std::string title;
  std::variant<FittedEquation, TableContent, GraphContent, Sections> content;
};

// Texts have no control characters and are UTF-8, whatever was asked.
struct ReportDocument {
  std::string title;
  std::vector<std::string> remarks;  // lines
  std::vector<ReportFact> facts;     // author, data, cases, model, program, date
  std::vector<AnsweredBox> messages;
  std::vector<ReportedPart> parts;
  std::vector<Note> notes;         // with the equation, and in JSON
  std::optional<Health> health;    // likewise; none after a failed fit
  std::optional<SecondFit> fit;    // where notes, influence or predictions ask for it, likewise
  std::vector<int> selectedCases;  // stand out in graphs
  bool hasNewCases = false;
  std::vector<PredictedCase> predictions;  // of them; none after a failed fit
  Paper paper = Paper::a4;
  bool isColoured = false;
  const AnalysisState* state;  // outlives the document
};

// Of a report whose request has none: "Multiple regression of Rent".
std::string usualTitle(const AnalysisState& state);

// Makes the displays anew from the record, graphs in a size that suits the format.
ReportDocument reportDocument(const AnalysisState& state, const ReportRequest& request,
                              const ReportCircumstances& around);

// Texts of the messages for a reader: one that follows itself is told once, with "(3 times)".
std::vector<std::string> messageTexts(const ReportDocument& document);

using ReportSink = std::function<void(std::string_view)>;

// The bytes of the report, UTF-8, in one piece or several. Needs an analysis, no windows, and
// changes nothing.
void writeReport(const AnalysisState& state, const ReportRequest& request,
                 const ReportCircumstances& around, const ReportSink& sink);
// The same as one text.
std::string makeReport(const AnalysisState& state, const ReportRequest& request,
                       const ReportCircumstances& around);

}  // namespace tolmer
