#include "shell/new_cases_sheet.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/sentence_parts.h"
#include "engine/number_format.h"
#include "insight/insight_tables.h"
#include "insight/model_comparison.h"
#include "sheet/sheet_content.h"
#include "textimport/typed_number.h"

namespace tolmer {
namespace {

constexpr const char* labelHeading = "Name";

std::vector<std::string> predictorsOf(const ModelData& data) {
  return {data.names.begin() + (data.intercept ? 1 : 0), data.names.end() - 1};
}

bool hasNames(const PasteTable& table) {
  return std::ranges::any_of(table.headings, [](const std::string& name) { return !name.empty(); });
}

// The cells that stand, with the columns of the table over them that are called as predictors.
Result<PasteTable> byNames(const PasteTable& table, const DataSheet& sheet, int firstRow,
                           const std::vector<std::string>& names) {
  PasteTable result;
  const int predictors = static_cast<int>(names.size());
  result.cells.resize(table.rows() - 1, predictors - 1);
  bool found = false;
  for (int to = 0; to < predictors; ++to) {
    const auto from = std::ranges::find(table.headings, names[static_cast<std::size_t>(to)]);
    found = found || from != table.headings.end();
    for (int row = 0; row < table.rows() && firstRow + row <= sheet.observations(); ++row)
      result.cells(row, to) =
          from == table.headings.end()
              ? sheet.cell(firstRow + row, to + 1)
              : table.cells(row, static_cast<int>(from - table.headings.begin()));
  }
  if (!found)
    return Error{"", "Nothing was pasted: no column is called " + listed(names) +
                         ", as the predictors are. Without names columns are taken as they come."};
  return result;
}

}  // namespace

bool NewCasesSheet::follow(const Examination* examination) {
  examination_ = examination;
  fit_ = examination ? validFit(state_, *examination) : nullptr;
  std::vector<std::string> names = fit_ ? predictorsOf(examination->data) : names_;
  const bool isNew = names != names_;
  names_ = std::move(names);
  if (isNew) startAnew();
  predict();
  return isNew;
}

void NewCasesSheet::startAnew() {
  if (!sheet_) {
    sheet_ = std::make_unique<DataSheet>(mostNewCases, editorVariables);
    sheet_->Changed = [this](const SheetChange& change) { changed(change); };
  }
  SheetContent content = newContent(mostNewCases, editorVariables);
  for (int c = 0; c <= predictors(); ++c) content.cells(0, c).text = heading(c);
  given_.clear();
  sheet_->replaceWith(content, {});
  give(1, {"means", casesAtMeans(examination_->data).rows[0]});
  sheet_->startVisit();
}

void NewCasesSheet::give(int row, Given given) {
  PasteTable table;
  table.cells.resize(0, predictors() - 1);
  for (int c = 0; c < predictors(); ++c)
    table.cells(0, c) = {.kind = DataCell::Kind::number,
                         .number = given.values[static_cast<std::size_t>(c)]};
  given_[row] = std::move(given);
  sheet_->paste({{row, 1}, {row, 1}}, table);
}

std::string NewCasesSheet::model() const {
  return examination_ && examination_->data.cases > 0
             ? modelTitle(examination_->data.names, examination_->data.intercept)
             : std::string();
}

std::string NewCasesSheet::heading(int column) const {
  return column == 0 ? labelHeading : names_[static_cast<std::size_t>(column) - 1];
}

std::string NewCasesSheet::shownText(int row, int column) const {
  if (row == 0) return heading(column);
  if (column == 0) return nameOf(row);
  if (const auto value = sheet_->value(row, column); value)
    return std::abs(*value) <= std::numeric_limits<float>::max()
               ? generalText(static_cast<float>(*value))
               : generalText(*value);
  return sheet_->shownText(row, column);
}

std::string NewCasesSheet::exactText(int row, int column) const {
  const auto value = sheet_->value(row, column);
  return value ? tolmer::exactText(*value) : sheet_->shownText(row, column);
}

Result<int> NewCasesSheet::paste(CellAddress at, const PasteTable& table) {
  PasteTable taken = table;
  if (hasNames(table)) {
    auto named = byNames(table, *sheet_, at.row, names_);
    if (!named) return named.error();
    taken = *std::move(named);
    at.column = 1;
  }
  if (at.column + taken.columns() - 1 > predictors())
    return Error{"", "Nothing was pasted: " + counted(taken.columns(), "column") +
                         " from here on reach beyond the predictors."};
  taken.headings.clear();
  const PasteOutcome outcome = sheet_->paste({at, at}, taken);
  if (!outcome.pasted || outcome.refused > 0) return Error{"", outcome.reason};
  return at.row;
}

Result<int> NewCasesSheet::addCase(int number) {
  const int row = sheet_->lastUsedRow() + 1;
  if (row > mostNewCases)
    return Error{"", "There is room for " + std::to_string(mostNewCases) + " cases."};
  const std::string& label = state_.tCaseLabel[static_cast<std::size_t>(number)];
  Given given{state_.bLabeledData && !label.empty() ? label : "case " + std::to_string(number), {}};
  for (int c = 1; c <= predictors(); ++c)
    given.values.push_back(
        writtenValue(state_, number, state_.iModelCol[static_cast<std::size_t>(c) + 1]));
  give(row, std::move(given));
  return row;
}

// As the analysis holds it.
std::optional<float> NewCasesSheet::held(int row, int column) const {
  const auto value = sheet_->value(row, column);
  if (!value || !(std::abs(*value) <= std::numeric_limits<float>::max())) return {};
  return static_cast<float>(*value);
}

void NewCasesSheet::predict() {
  predicted_.clear();
  placeOf_.assign(static_cast<std::size_t>(mostNewCases) + 1, 0);
  NewCases cases{names_, {}};
  for (int row = 1; fit_ && row <= sheet_->lastUsedRow(); ++row) {
    std::vector<double> values;
    for (int c = 1; c <= predictors(); ++c)
      if (const auto value = held(row, c)) values.push_back(*value);
    if (static_cast<int>(values.size()) < predictors()) continue;
    cases.rows.push_back(std::move(values));
    placeOf_[static_cast<std::size_t>(row)] = static_cast<int>(cases.rows.size());
  }
  if (fit_) predicted_ = *predictCases(examination_->data, *fit_, cases);
  figures_ = predictionTable(predicted_);
}

const PredictedCase* NewCasesSheet::prediction(int row) const {
  const int place = placeOf_[static_cast<std::size_t>(row)];
  return place == 0 ? nullptr : &predicted_[static_cast<std::size_t>(place) - 1];
}

std::string NewCasesSheet::figure(int row, int number) const {
  const int place = row == 0 ? 0 : placeOf_[static_cast<std::size_t>(row)];
  return row > 0 && place == 0 ? std::string() : figures_.at(place + 1, number + 1).text;
}

std::string NewCasesSheet::nameOf(int row) const {
  const std::string& typed = sheet_->cell(row, 0).text;
  const auto given = given_.find(row);
  if (!typed.empty() || given == given_.end()) return typed;
  for (int c = 1; c <= predictors(); ++c)
    if (sheet_->value(row, c) != given->second.values[static_cast<std::size_t>(c) - 1]) return {};
  return given->second.name;
}

std::string NewCasesSheet::describedCase(int row) const {
  const std::string name = nameOf(row);
  return "Case " + std::to_string(row) + (name.empty() ? "" : " (" + name + ")");
}

std::string NewCasesSheet::sentence(int row) const {
  if (row < 1 || !prediction(row)) return {};
  return describedCase(row) + ": fitted value " + figure(row, 1) +
         ". 95 per cent limits: " + figure(row, 2) + " to " + figure(row, 3) +
         " for the mean of all such cases, " + figure(row, 4) + " to " + figure(row, 5) +
         " for a single one.";
}

// What keeps a case that is begun from being predicted.
std::string NewCasesSheet::lackOf(int row) const {
  std::vector<std::string> missing, tooLarge;
  for (int c = 1; c <= predictors(); ++c)
    if (!held(row, c)) (sheet_->value(row, c) ? tooLarge : missing).push_back(heading(c));
  const std::string beyond = " too large (the analysis takes numbers up to 3.4e38).";
  if (!tooLarge.empty()) return listed(tooLarge) + (tooLarge.size() == 1 ? " is" : " are") + beyond;
  return listed(missing) + (missing.size() == 1 ? " has" : " have") + " no value.";
}

std::vector<std::string> NewCasesSheet::remarks() const {
  std::vector<std::string> lines;
  for (int row = 1; fit_ && row <= sheet_->lastUsedRow(); ++row) {
    if (!isUsed(sheet_->content(), row)) continue;
    const PredictedCase* one = prediction(row);
    const std::string words = one ? one->words : lackOf(row);
    if (!words.empty()) lines.push_back(describedCase(row) + ": " + words);
  }
  return lines;
}

TableContent NewCasesSheet::table() const {
  const int last = sheet_->lastUsedRow();
  TableContent table(last + 1, 2 + predictors() + figures);
  table.fixedColumns = 2;
  table.heading(1, 1, "Case", Align::right);
  for (int row = 0; row <= last; ++row) {
    if (row > 0) table.figure(row + 1, 1, std::to_string(row), Align::right);
    for (int c = 0; c <= predictors() + figures; ++c) {
      const std::string text =
          c <= predictors() ? shownText(row, c) : figure(row, c - predictors());
      const Align align = c == 0 ? Align::left : Align::right;
      row == 0 ? table.heading(1, c + 2, text, align)
      : c == 0 ? table.text(row + 1, 2, text, align)
               : table.figure(row + 1, c + 2, text, align);
    }
  }
  table.notes = remarks();
  table.notes.push_back(figures_.notes.back());
  return table;
}

}  // namespace tolmer
