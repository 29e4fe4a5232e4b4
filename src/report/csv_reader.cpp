#include "report/csv_reader.h"

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

#include "base/file_io.h"
#include "base/text_encoding.h"
#include "base/trimmed.h"

namespace tolmer {
namespace {

// Cases and variables are counted with 16 signed bits.
constexpr int mostRows = 32767;
constexpr int mostColumns = 32767;
// What keeps the reading below a second and 64 MiB.
constexpr std::size_t mostCells = 2000000;
constexpr std::size_t mostBytes = std::size_t{16} << 20;

Error errorAtLine(const std::string& fileName, int line, std::string_view text) {
  return {fileName + ":" + std::to_string(line), std::string(text)};
}

// Takes what stands in quotes from the front of a list; empty where its first field is bare.
std::string takeQuoted(std::string_view& list) {
  std::string field;
  const auto quote = list.find_first_not_of(" \t");
  if (quote == list.npos || list[quote] != '"') return field;
  list.remove_prefix(quote + 1);
  for (; !list.empty(); list.remove_prefix(1)) {
    if (list.front() == '"') {
      list.remove_prefix(1);
      if (!list.starts_with('"')) break;
    }
    field += list.front();
  }
  return std::string(trimmed(field));
}

}  // namespace

Result<CsvTable> CsvTable::open(const std::string& fileName) {
  auto bytes = readWholeFile(fileName, mostBytes);
  if (!bytes) return bytes.error();
  return parse(fileName, std::move(*bytes));
}

Result<CsvTable> CsvTable::parse(std::string fileName, std::string bytes) {
  CsvTable table;
  table.fileName_ = std::move(fileName);
  table.content_ = withoutControls(utf8FromFile(std::move(bytes)));
  // A cell has a figure and a comma at least, but for empty ones.
  table.cells_.reserve(std::min(mostCells, table.content_.size() / 2));
  RecordReader reader(table.fileName_, table.content_);
  while (!reader.atEnd()) {
    auto record = reader.next();
    if (!record) return record.error();
    if (record->fields.size() == 1 && trimmed(table.text(record->fields[0])).empty()) continue;
    if (table.names_.empty()) {
      if (auto taken = table.takeHeading(*record); !taken) return taken.error();
      continue;
    }
    if (record->fields.size() != table.names_.size())
      return errorAtLine(table.fileName_, record->line,
                         std::to_string(record->fields.size()) +
                             (record->fields.size() == 1 ? " field" : " fields") +
                             ", the heading has " + std::to_string(table.names_.size()));
    if (table.rows() == mostRows)
      return errorAtLine(table.fileName_, record->line,
                         "more than " + std::to_string(mostRows) + " cases");
    if (table.cells_.size() + record->fields.size() > mostCells)
      return errorAtLine(table.fileName_, record->line,
                         "more than " + std::to_string(mostCells) + " cells");
    table.cells_.insert(table.cells_.end(), record->fields.begin(), record->fields.end());
    table.lines_.push_back(record->line);
  }
  if (table.names_.empty()) return Error{table.fileName_, "the file is empty"};
  if (table.lines_.empty()) return Error{table.fileName_, "there is no case below the heading"};
  return table;
}

Result<bool> CsvTable::takeHeading(const FieldRecord& heading) {
  const auto count = static_cast<int>(heading.fields.size());
  if (count < 2)
    return errorAtLine(fileName_, heading.line,
                       "the heading has one field only; fields are divided by commas");
  if (count > mostColumns)
    return errorAtLine(fileName_, heading.line,
                       "more than " + std::to_string(mostColumns) + " columns");
  std::set<std::string> taken;
  for (int column = 0; column < count; ++column) {
    const auto field = trimmed(text(heading.fields[static_cast<std::size_t>(column)]));
    std::string name = onOneLine(std::string(field));
    if (name.empty()) name = "Col " + std::to_string(column + 1);
    if (!taken.insert(name).second)
      return Error{
          fileName_ + ":" + std::to_string(heading.line) + ":" + std::to_string(column + 1),
          "a second column is named \"" + name + "\""};
    names_.push_back(std::move(name));
  }
  return true;
}

std::string_view CsvTable::cell(int row, int column) const {
  return trimmed(text(
      cells_[static_cast<std::size_t>(row) * names_.size() + static_cast<std::size_t>(column)]));
}

std::string CsvTable::namesInOrder() const {
  std::string names;
  for (const std::string& name : names_) names += (names.empty() ? "" : ", ") + name;
  return names;
}

int CsvTable::find(std::string_view name) const {
  const auto found = std::find(names_.begin(), names_.end(), name);
  return found == names_.end() ? -1 : static_cast<int>(found - names_.begin());
}

Error CsvTable::errorAt(int row, int column, std::string_view text) const {
  return {fileName_ + ":" + std::to_string(lines_[static_cast<std::size_t>(row)]) + ":" +
              std::to_string(column + 1),
          "column " + name(column) + ": " + std::string(text)};
}

std::vector<std::string> fieldsOfList(std::string_view list, char separator) {
  std::vector<std::string> fields;
  for (bool more = true; more;) {
    std::string field = takeQuoted(list);
    const auto end = std::min(list.find(separator), list.size());
    field += trimmed(list.substr(0, end));
    more = end < list.size();
    list.remove_prefix(more ? end + 1 : end);
    fields.push_back(std::move(field));
  }
  return fields;
}

}  // namespace tolmer
