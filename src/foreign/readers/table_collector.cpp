#include "foreign/readers/table_collector.h"
#include "base/data_limits.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace tolmer {
namespace {

// A longer text is no name and no category; its beginning tells what it is.
std::string_view beginning(std::string_view text) {
  if (text.size() <= longestCutText) return text;
  std::size_t end = longestCutText;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
  return text.substr(0, end);
}

constexpr std::size_t mostCodes = 30;  // different ones in a column that are told one by one

}  // namespace

TableCollector::TableCollector(const CutRequest& request) : request_(request) {}

void TableCollector::describeColumn(CutColumn column) {
  const auto at = columnAt(column.number);
  table_.columns[at] = std::move(column);
}

void TableCollector::beginRow(int row, bool hidden) {
  row_ = row;
  rowHidden_ = hidden;
  rowBegun_ = false;
  if (table_.namesApart) startRow();  // a case without any value is one, too
}

bool TableCollector::rowIsKept() const {
  const int index = table_.rowsInAll - 1;
  const auto kept = static_cast<int>(table_.rowNumbers.size());
  if (kept >= request_.rows || fields_.size() >= mostCutFields || firstLostField_ != none)
    return false;
  if (index < request_.head) return true;
  if (!request_.only.empty())
    return std::binary_search(request_.only.begin(), request_.only.end(), row_);
  return (index - request_.head) % std::max(request_.every, 1) == 0;
}

void TableCollector::startRow() {
  rowBegun_ = true;
  ++table_.rowsInAll;
  if (rowHidden_) ++table_.hiddenRows;
  rowKept_ = rowIsKept();
  if (!rowKept_) return;
  table_.rowNumbers.push_back(row_);
  rowStarts_.push_back(fields_.size());
}

bool TableCollector::isWanted(int column) const {
  return request_.columns.empty() || std::find(request_.columns.begin(), request_.columns.end(),
                                               column) != request_.columns.end();
}

std::size_t TableCollector::columnAt(int column) {
  const auto number = static_cast<std::size_t>(column);
  if (columnOf_.size() <= number) columnOf_.resize(number + 1, none);
  if (columnOf_[number] == none) {
    columnOf_[number] = table_.columns.size();
    table_.columns.emplace_back().number = column;
    different_.emplace_back();
  }
  return columnOf_[number];
}

std::size_t TableCollector::place(int column, CutKind kind) {
  if (!rowBegun_) startRow();
  const std::size_t at = columnAt(column);
  ++table_.columns[at].counts[static_cast<std::size_t>(kind)];
  if (!rowKept_ || !isWanted(column)) return none;
  fields_.push_back({.kind = kind});
  fieldColumns_.push_back(static_cast<std::uint32_t>(at));
  return fields_.size() - 1;
}

void TableCollector::putNumber(int column, CutKind kind, double number) {
  if (kind != CutKind::missing) different_[columnAt(column)].seeNumber(number);
  if (const auto at = place(column, kind); at != none) fields_[at].number = number;
}

void TableCollector::putText(int column, CutKind kind, std::string_view text) {
  if (kind == CutKind::text)
    different_[columnAt(column)].seeText(std::hash<std::string_view>{}(text));
  if (const auto at = place(column, kind); at != none) fields_[at].text = interned(text, at);
}

void TableCollector::countCode(int column, std::string code) {
  auto& codes = table_.columns[columnAt(column)].missingCodes;
  const auto known = std::find_if(codes.begin(), codes.end(),
                                  [&code](const MissingCode& other) { return other.code == code; });
  if (known != codes.end())
    ++known->count;
  else if (codes.size() < mostCodes)
    codes.push_back({std::move(code), 1});
}

void TableCollector::putMissing(int column, double code) {
  putNumber(column, CutKind::missing, code);
  countCode(column, shortestDigits(code));
}

void TableCollector::putMissing(int column, std::string_view code) {
  putText(column, CutKind::missing, code);
  countCode(column, std::string(beginning(code)));
}

void TableCollector::putLaterText(int column, std::uint32_t number) {
  different_[columnAt(column)].seeText(number);
  if (const auto at = place(column, CutKind::text); at != none) later_.push_back({number, at});
}

void TableCollector::tellText(const LaterText& later, std::string_view text) {
  CutField& field = fields_[later.field];
  if (!text.empty()) {
    field.text = interned(text, later.field);
    return;
  }
  --table_.columns[fieldColumns_[later.field]].counts[static_cast<std::size_t>(CutKind::text)];
  field = {};
}

std::uint32_t TableCollector::interned(std::string_view text, std::size_t field) {
  if (text.size() > longestCutText) ++table_.cutTexts;
  text = beginning(text);
  const auto [entry, isNew] =
      textNumbers_.try_emplace(std::string(text), static_cast<std::uint32_t>(table_.texts.size()));
  if (!isNew) return entry->second;
  if (textBytes_ += text.size(); textBytes_ > mostCutTextBytes) {
    firstLostField_ = std::min(firstLostField_, field);
    textNumbers_.erase(entry);
    return noText;
  }
  table_.texts.emplace_back(text);
  return entry->second;
}

// The columns with content, or of a statistics file all, by their numbers.
std::vector<std::size_t> TableCollector::columnsInOrder() const {
  std::vector<std::size_t> order;
  for (std::size_t at = 0; at < table_.columns.size(); ++at) {
    const CutColumn& column = table_.columns[at];
    const bool counts = table_.namesApart || std::any_of(column.counts.begin(), column.counts.end(),
                                                         [](int count) { return count > 0; });
    if (counts && isWanted(column.number)) order.push_back(at);
  }
  std::sort(order.begin(), order.end(), [this](std::size_t a, std::size_t b) {
    return table_.columns[a].number < table_.columns[b].number;
  });
  return order;
}

std::size_t TableCollector::rowEnd(std::size_t row) const {
  return row + 1 < rowStarts_.size() ? rowStarts_[row + 1] : fields_.size();
}

CutTable TableCollector::take() {
  const auto order = columnsInOrder();
  std::vector<std::size_t> placeOf(table_.columns.size(), none);
  std::vector<CutColumn> columns;
  for (const std::size_t at : order) {
    placeOf[at] = columns.size();
    table_.columns[at].different = different_[at].count();
    columns.push_back(std::move(table_.columns[at]));
  }
  std::size_t rows = rowStarts_.size();
  while (rows > 0 && (rows * columns.size() > mostCutFields || rowEnd(rows - 1) > firstLostField_))
    --rows;
  table_.fields.assign(rows * columns.size(), {});
  for (std::size_t row = 0; row < rows; ++row)
    for (std::size_t at = rowStarts_[row]; at < rowEnd(row); ++at)
      if (const auto column = placeOf[fieldColumns_[at]]; column != none)
        table_.fields[row * columns.size() + column] = fields_[at];
  table_.rowNumbers.resize(rows);
  table_.columns = std::move(columns);
  return std::move(table_);
}

}  // namespace tolmer
