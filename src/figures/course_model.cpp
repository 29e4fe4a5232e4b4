#include "figures/course_model.h"

#include <cstddef>
#include <optional>

#include "engine/fitted_equation.h"
#include "figures/field_lines.h"
#include "report/model_by_name.h"
#include "report/report_run.h"
#include "report/table_dataset.h"
#include "report/table_source.h"

namespace tolmer {
namespace {

constexpr std::string_view noIntercept = "no intercept";

std::optional<Error> takeWord(DisplayChoice& choice, const std::string& word) {
  if (word == "no-line") {
    choice.regressionLine = false;
  } else if (word == "no-correlation") {
    choice.correlation = false;
  } else if (const std::size_t colon = word.find(':'); colon != word.npos) {
    choice.x = word.substr(0, colon);
    choice.y = word.substr(colon + 1);
  } else {
    return Error{"", "\"" + word + "\" is neither a pair of axes nor an option of a display"};
  }
  return std::nullopt;
}

// The axes of the choice, in a record that only this choice is drawn from.
std::optional<Error> chooseAxes(AnalysisState& state, const WorkingCopy& copy,
                                const DisplayChoice& choice) {
  if (choice.x.empty() || choice.display->id.iCategory != scatterDisplays) return std::nullopt;
  const int plot = choice.display->id.iIndex;
  const auto axes = chooseAxesByName(copy, {{plot, choice.x, choice.y}});
  if (!axes) return axes.error();
  state.iPlotXVar.at(plot) = axes->front().x;
  state.iPlotYVar.at(plot) = axes->front().y;
  return std::nullopt;
}

}  // namespace

CourseModel courseModel(const std::string& dataSet, const std::string& y, std::string_view x) {
  CourseModel model{dataSet, y, fieldsOfList(x), true};
  if (!model.x.empty() && model.x.back() == noIntercept) {
    model.intercept = false;
    model.x.pop_back();
  }
  if (model.x.size() == 1 && model.x.front() == "all") model.x.clear();
  return model;
}

Result<NamedTable> courseTable(const std::string& fileName) {
  ReportOptions options;
  options.file = fileName;
  auto source = readTable(options, {});
  if (source && !source->table.isVariable(0)) {
    options.labels = source->table.names.front();
    source = readTable(options, {});
  }
  if (!source) return source.error();
  return std::move(source->table);
}

Result<WorkingCopy> modelledData(const CourseModel& model, const std::string& dataFolder) {
  const std::string fileName = dataFolder + model.dataSet + ".csv";
  const auto table = courseTable(fileName);
  if (!table) return table.error();
  ReportOptions options;
  options.y = model.y;
  options.x = model.x;
  options.intercept = model.intercept;
  if (!table->labels.empty()) options.labels = table->names.front();
  auto copy = dataSetFromTable(*table, fileName, options);
  if (!copy) return copy.error();
  if (auto error = chooseModelByName(*copy, options)) return *error;
  return copy;
}

Result<DisplayChoice> displayChoice(std::string_view text) {
  const std::vector<std::string> words = wordsOf(text);
  const std::string form = words.empty() ? std::string() : words.front();
  DisplayChoice choice;
  choice.display = findDisplay(form);
  if (!choice.display) return Error{"", "there is no display \"" + form + "\""};
  for (std::size_t i = 1; i < words.size(); ++i)
    if (auto error = takeWord(choice, words[i])) return *error;
  return choice;
}

AnalysedModel::AnalysedModel(const WorkingCopy& copy) : copy_(copy) {
  MessageLog messages;
  state_ = analysisOf(copy, messages);
}

Result<AnalysedModel> AnalysedModel::open(const CourseModel& model, const std::string& dataFolder) {
  const auto copy = modelledData(model, dataFolder);
  if (!copy) return copy.error();
  return AnalysedModel(*copy);
}

std::string AnalysedModel::equation() const { return fittedEquation(state_); }

Result<DisplayContent> AnalysedModel::draw(const DisplayChoice& choice, ViewSize size) const {
  AnalysisState state = state_;
  state.bShowRegressionLine = choice.regressionLine;
  state.bShowCorrelation = choice.correlation;
  if (auto error = chooseAxes(state, copy_, choice)) return *error;
  MessageLog messages;
  return contentOf(*choice.display, state, size, messages);
}

}  // namespace tolmer
