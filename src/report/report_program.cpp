#include "report/report_program.h"

#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

#include "base/data_limits.h"
#include "base/file_io.h"
#include "base/text_encoding.h"
#include "report/course_data.h"
#include "report/model_by_name.h"
#include "report/new_cases.h"
#include "report/options.h"
#include "report/report_document.h"
#include "report/report_run.h"
#include "report/table_dataset.h"
#include "report/table_source.h"
#include "report/variable_list.h"
#include "system/host_path.h"

namespace tolmer {
namespace {

ReportOutcome failed(int status, const Error& error) {
  return {status, {}, "tolreport: " + onOneLine(error.message()) + "\n"};
}

ReportOutcome usageFault(const Error& error) {
  ReportOutcome outcome = failed(ReportOutcome::usageAtFault, error);
  outcome.errors += "Try tolreport --help.\n";
  return outcome;
}

// A course's texts, and the name of any file, may hold what acts on a terminal.
void makePrintable(WorkingCopy& copy) {
  copy.mtDataFileName = onOneLine(copy.mtDataFileName);
  copy.mtLabelColName = onOneLine(copy.mtLabelColName);
  for (int j = 1; j <= copy.miNumCols; ++j) copy.otColName(j) = onOneLine(copy.otColName(j));
  for (int i = 1; i <= copy.miNumCases; ++i) copy.otCaseLabel(i) = onOneLine(copy.otCaseLabel(i));
}

std::optional<Error> tooManyPredictors(const WorkingCopy& copy) {
  if (copy.miNumPredictors <= mostPredictorsOfReport) return std::nullopt;
  return Error{copy.mtDataFileName, std::to_string(copy.miNumPredictors) +
                                        " independent variables, a report has at most " +
                                        std::to_string(mostPredictorsOfReport) +
                                        "; choose them with --x"};
}

std::vector<std::string> predictorsOf(const WorkingCopy& copy) {
  std::vector<std::string> names;
  for (int i = 1; i <= copy.miNumPredictors; ++i)
    names.push_back(copy.otColName(copy.oiIndepVarCol(i)));
  return names;
}

ReportOutcome delivered(std::string report, const ReportOptions& options) {
  if (options.outputFile.empty()) return {ReportOutcome::done, std::move(report), {}};
  if (const auto error = writeFileAtomically(options.outputFile, report))
    return failed(ReportOutcome::dataAtFault, *error);
  return {};
}

ReportOutcome listVariables(const ReportOptions& options, const ReportSurroundings& around) {
  const auto table = listTable(options, {around.standardInput, around.reader});
  if (!table) return failed(ReportOutcome::dataAtFault, table.error());
  const bool isJson = options.request.format == ReportFormat::json;
  return delivered(isJson ? variableListJson(*table) : variableListText(*table), options);
}

// The common end of both ways to a data set.
ReportOutcome reportOn(WorkingCopy& copy, const ReportOptions& options,
                       const ReportSurroundings& around) {
  makePrintable(copy);
  if (auto error = chooseModelByName(copy, options)) return usageFault(*error);
  if (auto error = tooManyPredictors(copy)) return usageFault(*error);
  const auto axes = chooseAxesByName(copy, options.plots);
  if (!axes) return usageFault(axes.error());
  ReportRequest request = options.request;
  if (!options.predict.empty()) {
    auto cases = readNewCases(options, predictorsOf(copy), {around.standardInput, around.reader});
    if (!cases) return failed(ReportOutcome::dataAtFault, cases.error());
    request.newCases = *std::move(cases);
  }
  MessageLog messages;
  const AnalysisState state = analysisOf(std::move(copy), messages, *axes);
  request.isColoured = around.isColoured && options.outputFile.empty();
  // JSON tells no date.
  const std::string date = request.format == ReportFormat::json ? "" : around.date();
  const ReportCircumstances circumstances{date, messages.boxes()};
  if (options.outputFile.empty() && around.output) {
    writeReport(state, request, circumstances, around.output);
    return {};
  }
  return delivered(makeReport(state, request, circumstances), options);
}

std::string listOf(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names) list += (list.empty() ? "" : ", ") + name;
  return list;
}

// What a file says of its data stands in the place of a variable-information file.
void describe(WorkingCopy& copy, const SourcedTable& source) {
  copy.otVarInfo(0) = source.title;
  copy.mbInfoAvailable = !source.title.empty();
  for (int j = 1; j <= copy.miNumCols; ++j) {
    const auto label = source.labels.find(copy.otColName(j));
    if (label == source.labels.end()) continue;
    copy.otVarInfo(j) = label->second;
    copy.mbInfoAvailable = true;
  }
}

ReportOutcome reportOnTable(const ReportOptions& options, const ReportSurroundings& around) {
  auto source = readTable(options, {around.standardInput, around.reader});
  if (!source) return failed(ReportOutcome::dataAtFault, source.error());
  if (!options.labels.empty() && source->table.labels.empty())
    return usageFault({source->name, "there is no column \"" + options.labels +
                                         "\" for the labels; the columns are " +
                                         listOf(source->table.names)});
  const auto whole = withDummies(options, source->table);
  if (!whole) return usageFault({source->name, whole.error().text});
  auto copy = dataSetFromTable(source->table, source->name, *whole);
  if (copy) describe(*copy, *source);
  const auto remarks = std::move(source->table.told);
  source = Error{};  // the analysis can use its memory
  if (!copy) return failed(ReportOutcome::dataAtFault, copy.error());
  std::string told;
  for (const std::string& remark : remarks) told += "tolreport: " + onOneLine(remark) + "\n";
  if (around.errors) around.errors(std::exchange(told, {}));
  ReportOutcome outcome = reportOn(*copy, *whole, around);
  outcome.errors.insert(0, told);
  return outcome;
}

// Data that the program would open on in part are no data for a report.
ReportOutcome reportOnCourse(const ReportOptions& options, const ReportSurroundings& around) {
  MessageLog messages;
  auto copy = courseDataSet(options, messages);
  if (!copy) return failed(ReportOutcome::dataAtFault, copy.error());
  if (!messages.boxes().empty())
    return failed(ReportOutcome::dataAtFault, {"", messages.boxes().front().box.text});
  return reportOn(*copy, options, around);
}

}  // namespace

ReportOutcome runReport(const std::vector<std::string>& words, const ReportSurroundings& around) {
  auto options = parseOptions(words);
  if (!options) return usageFault(options.error());
  if (!options->answer.empty()) return {ReportOutcome::done, options->answer, {}};
  if (options->list) return listVariables(*options, around);
  if (!options->file.empty()) return reportOnTable(*options, around);
  if (options->programFolder.empty()) options->programFolder = around.programFolder();
  // The data lie beside this folder, and a bare name has no folder above it.
  std::error_code fault;
  const auto whole = std::filesystem::absolute(host::pathOf(options->programFolder), fault);
  if (!fault) options->programFolder = host::nameOf(whole);
  return reportOnCourse(*options, around);
}

}  // namespace tolmer
