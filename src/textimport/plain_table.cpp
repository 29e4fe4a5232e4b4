#include "textimport/plain_table.h"

#include <algorithm>
#include <utility>

#include "base/text_encoding.h"
#include "base/trimmed.h"
#include "textimport/missing_codes.h"
#include "textimport/number_shape.h"

namespace tolmer {
namespace {

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

// Neither a number in any spelling nor a mark of a missing one.
bool isWord(std::string_view field) {
  if (field.empty() || isMissingMark(field)) return false;
  return isLetter(field.front()) || !numberShape(field).isNumber();
}

bool hasNumber(const TextNumber& number) { return !isGap(number); }

// Units may stand in a first row without numbers.
bool beginsWithNumbers(const NamedTable& table) {
  return std::any_of(table.numbers.begin(), table.numbers.end(), [&](const auto& column) {
    return !column.empty() && hasNumber(column.front()) &&
           (table.rows == 1 || std::any_of(column.begin() + 1, column.end(), hasNumber));
  });
}

}  // namespace

std::optional<PlainTable> PlainTable::take(std::string& text) {
  for (const char separator : {';', '\t'})
    if (text.find(separator) != text.npos) return std::nullopt;
  PlainTable table;
  if (text.find('"') != text.npos) table.kept_ = text;
  table.content_ = std::move(text);
  if (table.cut()) return table;
  text = std::move(table).release();
  return std::nullopt;
}

bool PlainTable::cut() {
  // A cell has a figure and a comma at least, but for empty ones.
  constexpr std::size_t mostAtOnce = 2000000;
  cells_.reserve(std::min(mostAtOnce, content_.size() / 2));
  RecordReader reader("", content_);
  while (!reader.atEnd()) {
    const auto record = reader.next();
    if (!record) return false;
    const auto& fields = record->fields;
    if (fields.size() == 1 && trimmed(fields[0].in(content_)).empty()) continue;
    if (names_.empty()) {
      if (!takeNames(*record)) return false;
      continue;
    }
    if (fields.size() != names_.size()) return false;
    cells_.insert(cells_.end(), fields.begin(), fields.end());
    ++rows_;
  }
  return rows_ > 0 && !lastRowIsBlank();
}

bool PlainTable::takeNames(const FieldRecord& record) {
  for (const FieldSpan field : record.fields) {
    std::string name = onOneLine(cellText(field.in(content_)));
    if (!isWord(name)) return false;
    names_.push_back(std::move(name));
  }
  return names_.size() > 1;
}

bool PlainTable::lastRowIsBlank() const {
  for (int column = 0; column < columns(); ++column)
    if (!cell(rows_ - 1, column).empty()) return false;
  return true;
}

std::string_view PlainTable::cell(int row, int column) const {
  return trimmed(
      cells_[static_cast<std::size_t>(row) * names_.size() + static_cast<std::size_t>(column)].in(
          content_));
}

// A column that nobody names may hold anything; what holds numbers then counts where all are bare.
std::optional<std::vector<TextNumber>> PlainTable::numbersOf(int column, bool isWanted,
                                                             bool othersAre) const {
  std::vector<TextNumber> numbers;
  numbers.reserve(static_cast<std::size_t>(rows_));
  int gaps = 0;
  int words = 0;
  int odd = 0;  // numbers in another spelling
  for (int row = 0; row < rows_; ++row) {
    const std::string_view field = cell(row, column);
    const auto number = textNumberOf(field);
    numbers.push_back(number.value_or(gapInNumbers));
    if (!number) ++(field.empty() || isMissingMark(field) ? gaps : isWord(field) ? words : odd);
  }
  const bool isMixed = odd > 0 || (words > 0 && words + gaps < rows_);
  const bool hasNone = words + gaps == rows_;
  const std::vector<TextNumber> none;
  if (isWanted) return isMixed || hasNone ? std::nullopt : std::optional(std::move(numbers));
  if (hasNone || (!othersAre && words + gaps > 0)) return none;
  return isMixed ? std::nullopt : std::optional(std::move(numbers));
}

std::optional<NamedTable> PlainTable::named(const WantedColumns& wanted) const {
  NamedTable table{rows_, names_, {}, {}};
  table.numbers.resize(names_.size());
  for (int column = 0; column < columns(); ++column) {
    const std::string& columnName = name(column);
    if (!wanted.labels.empty() && columnName == wanted.labels) {
      for (int row = 0; row < rows_; ++row)
        table.labels.push_back(onOneLine(cellText(cell(row, column))));
      continue;
    }
    const bool isWanted =
        std::find(wanted.numbers.begin(), wanted.numbers.end(), columnName) != wanted.numbers.end();
    auto numbers = numbersOf(column, isWanted, wanted.others);
    if (!numbers) return std::nullopt;
    table.numbers[static_cast<std::size_t>(column)] = std::move(*numbers);
  }
  return beginsWithNumbers(table) ? std::optional(std::move(table)) : std::nullopt;
}

}  // namespace tolmer
