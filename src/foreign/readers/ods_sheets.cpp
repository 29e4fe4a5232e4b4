#include "foreign/readers/ods_sheets.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "base/data_limits.h"
#include "foreign/readers/date_cells.h"
#include "foreign/readers/sheet_choice.h"
#include "textimport/typed_number.h"

namespace tolmer {
namespace {

constexpr int lastRow = 1'048'576;
constexpr int lastColumn = 16'384;
constexpr std::int64_t mostCells = 20'000'000;  // with content; what repeats counts each time
constexpr std::size_t longestValue = 4 * longestCutText;

int repeats(std::string_view text) {
  if (text.empty()) return 1;
  int number = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  if (read.ec == std::errc::result_out_of_range) return lastRow + 1;
  return std::max(number, 1);
}

// What lies in cells and sheets without being their content.
bool isIgnored(std::string_view name) {
  constexpr std::array<std::string_view, 14> names{"annotation",
                                                   "frame",
                                                   "shapes",
                                                   "custom-shape",
                                                   "g",
                                                   "line",
                                                   "rect",
                                                   "control",
                                                   "tracked-changes",
                                                   "dde-links",
                                                   "forms",
                                                   "ruby-text",
                                                   "named-expressions",
                                                   "database-ranges"};
  return std::find(names.begin(), names.end(), name) != names.end();
}

}  // namespace

void OdsSheetsSink::start(std::string_view name, const XmlAttributes& attributes) {
  if (ignored_ > 0 || isIgnored(name) || (name == "table" && current_)) {
    ++ignored_;
    return;
  }
  if (inCell_)
    startText(name, attributes);
  else if (name == "table-cell" || name == "covered-table-cell")
    startCell(attributes);
  else if (name == "table-row")
    startRow(attributes);
  else if (name == "table")
    startSheet(attributes);
  else
    startStyle(name, attributes);
}

void OdsSheetsSink::end(std::string_view name) {
  if (ignored_ > 0) {
    --ignored_;
    return;
  }
  if (name == "p")
    inParagraph_ = false;
  else if (name == "table-cell" || name == "covered-table-cell")
    endCell();
  else if (name == "table-row")
    endRow();
  else if (name == "table")
    endSheet();
}

void OdsSheetsSink::text(std::string_view text) {
  if (inCell_ && inParagraph_ && ignored_ == 0 && cellText_.size() < longestValue)
    cellText_ += text;
}

// A sheet is hidden by its style.
void OdsSheetsSink::startStyle(std::string_view name, const XmlAttributes& attributes) {
  if (name == "style") style_ = attributes["name"];
  if (name == "table-properties") hiddenStyles_[style_] = attributes["display"] == "false";
}

void OdsSheetsSink::startText(std::string_view name, const XmlAttributes& attributes) {
  if (cellText_.size() >= longestValue) return;
  if (name == "p") {
    if (!std::exchange(firstParagraph_, false)) cellText_ += '\n';
    inParagraph_ = true;
  } else if (name == "s") {
    cellText_.append(static_cast<std::size_t>(std::min(repeats(attributes["c"]), 100)), ' ');
  } else if (name == "tab") {
    cellText_ += '\t';
  } else if (name == "line-break") {
    cellText_ += '\n';
  }
}

void OdsSheetsSink::startSheet(const XmlAttributes& attributes) {
  const auto style = hiddenStyles_.find(attributes["style-name"]);
  sheets_.push_back(
      {std::string(attributes["name"]), style != hiddenStyles_.end() && style->second});
  current_ = Collected{sheets_.size() - 1, std::make_unique<TableCollector>(request_), {}};
  row_ = 0;
}

bool OdsSheetsSink::isWanted(const SheetInfo& sheet) const {
  return sheet.name == request_.sheet || std::to_string(sheets_.size()) == request_.sheet;
}

// Than the one that is kept so far.
bool OdsSheetsSink::isBetter(const SheetInfo& sheet) const {
  if (!request_.sheet.empty()) return isWanted(sheet) && (!best_ || sheet.name == request_.sheet);
  return sheet.hasCells && (!best_ || (sheets_[best_->sheet].hidden && !sheet.hidden));
}

void OdsSheetsSink::endSheet() {
  if (!current_) return;
  sheets_.back().hasCells = current_->collector->hasCells() || !current_->unsolved.empty();
  if (isBetter(sheets_.back())) best_ = std::move(current_);
  current_.reset();
}

void OdsSheetsSink::startRow(const XmlAttributes& attributes) {
  rowRepeats_ = repeats(attributes["number-rows-repeated"]);
  const std::string_view visibility = attributes["visibility"];
  rowHidden_ = visibility == "filter" || visibility == "collapse";
  column_ = 0;
  rowCells_.clear();
}

// A row that repeats counts only with content: empty ones fill the sheet to its end.
void OdsSheetsSink::endRow() {
  if (!current_) return;
  if (rowCells_.empty()) {
    row_ = std::min(row_ + rowRepeats_, lastRow);
    return;
  }
  std::int64_t inRow = 0;
  for (const auto& [column, cell] : rowCells_) inRow += cell.columns;
  cellsPut_ += inRow * rowRepeats_;
  if (cellsPut_ > mostCells)
    return stop({"", "it has more than " + std::to_string(mostCells) + " cells with content"});
  for (int i = 0; i < rowRepeats_ && !isStopped(); ++i) putRow();
}

void OdsSheetsSink::putRow() {
  if (++row_ > lastRow) return stop({"row " + std::to_string(row_), "it lies outside the sheet"});
  current_->collector->beginRow(row_, rowHidden_);
  for (const auto& [column, cell] : rowCells_)
    for (int i = 0; i < cell.columns && !isStopped(); ++i) put(cell, column + i);
}

void OdsSheetsSink::startCell(const XmlAttributes& attributes) {
  if (!current_) return;
  inCell_ = firstParagraph_ = true;
  cellText_.clear();
  const std::string_view value = attributes["value"];
  const std::string_view stringValue = attributes["string-value"];
  cell_ = {.type = std::string(attributes["value-type"]),
           .value = std::string(!value.empty() ? value : stringValue),
           .isError = attributes.exactly("calcext:value-type") == "error",
           .hasFormula = !attributes["formula"].empty(),
           .hasStringValue = !stringValue.empty(),
           .columns = repeats(attributes["number-columns-repeated"])};
  for (const std::string_view kind : {"date-value", "time-value", "boolean-value"})
    if (const auto other = attributes[kind]; !other.empty()) cell_.value = other;
  if (attributes["number-rows-spanned"].size() + attributes["number-columns-spanned"].size() > 0)
    ++current_->collector->table().mergedAreas;
}

void OdsSheetsSink::endCell() {
  if (!current_) return;
  inCell_ = inParagraph_ = false;
  const int first = column_ + 1;
  column_ = std::min(column_ + cell_.columns, lastColumn + 1);
  const bool isUnsolved = cell_.hasFormula && cell_.type.empty() && cellText_.empty();
  if (isUnsolved && current_->unsolved.empty())
    current_->unsolved = spreadsheetPlace(row_ + 1, first);
  const bool isText = cell_.type == "string" || (cell_.type.empty() && !cellText_.empty());
  if (isText && (!cell_.hasStringValue || cell_.isError)) cell_.value = cellText_;
  if (cell_.value.empty()) return;
  if (isText) cell_.type = "string";
  if (first + cell_.columns - 1 > lastColumn)
    return stop({"row " + std::to_string(row_ + 1), "a cell lies outside the sheet"});
  rowCells_.emplace_back(first, std::move(cell_));
}

void OdsSheetsSink::put(const Cell& cell, int column) {
  TableCollector& collector = *current_->collector;
  if (cell.type == "string")
    return collector.putText(column, cell.isError ? CutKind::error : CutKind::text, cell.value);
  if (cell.type == "boolean")
    return collector.putNumber(column, CutKind::boolean, cell.value == "true" ? 1 : 0);
  if (cell.type != "date" && cell.type != "time") return putNumber(cell, column);
  const bool isDate = cell.type == "date";
  const auto days = isDate ? daysOfIsoDate(cell.value) : daysOfIsoDuration(cell.value);
  if (!days) return stop({"cell " + place(column), isDate ? "it is no date" : "it is no time"});
  collector.putNumber(column, isDate ? CutKind::date : CutKind::time, *days);
}

void OdsSheetsSink::putNumber(const Cell& cell, int column) {
  const auto read = readNumber(cell.value);
  if (read.kind == NumberReading::Kind::tooLarge)
    return current_->collector->putText(column, CutKind::text, cell.value);
  if (read.kind != NumberReading::Kind::number)
    return stop({"cell " + place(column), "it should hold a number and does not"});
  const CutKind kind = cell.type == "percentage" ? CutKind::percent
                       : cell.type == "currency" ? CutKind::currency
                                                 : CutKind::number;
  current_->collector->putNumber(column, kind, read.number);
}

Result<CutBook> OdsSheetsSink::take() {
  const auto sheet = chosenSheet(sheets_, request_.sheet);
  if (!sheet) return sheet.error();
  if (!best_ || !sheets_[*sheet].hasCells) return Error{"", "the sheet has no cells with content"};
  if (!best_->unsolved.empty())
    return Error{"cell " + best_->unsolved,
                 "the result of its formula is not stored; open the file in your spreadsheet "
                 "program and save it once"};
  return CutBook{.format = "ods",
                 .sheets = std::move(sheets_),
                 .sheet = best_->sheet,
                 .remarks = {},
                 .table = best_->collector->take()};
}

}  // namespace tolmer
