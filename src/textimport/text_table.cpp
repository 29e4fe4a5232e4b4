#include "textimport/text_table.h"

#include <algorithm>
#include <utility>

#include "base/tabbed_text.h"
#include "base/text_encoding.h"
#include "base/trimmed.h"
#include "fieldfile/record_reader.h"
#include "textimport/number_shape.h"

namespace tolmer {
namespace {

bool isControl(char c) {
  const auto code = static_cast<unsigned char>(c);
  return (code < 0x20 && c != '\t' && c != '\n' && c != '\r') || code == 0x7F;
}

// Runs of blanks become one, and none stands at an end of a line.
std::string withSingleBlanks(const std::string& text) {
  std::string single;
  for (const char c : text) {
    const bool atLineStart = single.empty() || single.back() == '\n' || single.back() == '\r';
    if (c == ' ' && (atLineStart || single.back() == ' ')) continue;
    if ((c == '\n' || c == '\r') && single.ends_with(' ')) single.pop_back();
    single += c;
  }
  if (single.ends_with(' ')) single.pop_back();
  return single;
}

bool isBlank(const std::vector<std::string>& row) {
  return std::all_of(row.begin(), row.end(),
                     [](const std::string& field) { return field.empty(); });
}

bool isBlankLine(const std::vector<std::string>& row) {
  return row.size() == 1 && row.front().empty();
}

std::size_t usedLength(const std::vector<std::string>& row) {
  std::size_t used = row.size();
  while (used > 0 && row[used - 1].empty()) --used;
  return used;
}

// The only field that is not empty, or the first where all are; null where there are more.
const std::string* onlyField(const std::vector<std::string>& row) {
  const auto isFilled = [](const std::string& field) { return !field.empty(); };
  const auto filled = std::find_if(row.begin(), row.end(), isFilled);
  if (filled == row.end()) return &row.front();
  return std::any_of(filled + 1, row.end(), isFilled) ? nullptr : &*filled;
}

bool isTitle(const std::vector<std::string>& row) {
  const std::string* only = onlyField(row);
  return only && !numberShape(*only).isNumber();
}

bool isRowOfNames(const std::vector<std::string>& row) {
  return usedLength(row) >= 3 && std::none_of(row.begin(), row.end(), [](const auto& field) {
           return numberShape(field).isNumber();
         });
}

// What spreadsheets and programs write above the names: the study's title, its source, "sep=;".
void leaveOutTitles(TextTable& table) {
  constexpr std::ptrdiff_t most = 20;
  const auto names = std::find_if_not(table.rows.begin(), table.rows.end(), isTitle);
  const auto above = names - table.rows.begin();
  if (above == 0 || above > most || names == table.rows.end() || !isRowOfNames(*names)) return;
  for (auto row = table.rows.begin(); row != names; ++row)
    if (!isBlank(*row) && table.titleLines++ == 0) table.firstTitle = *onlyField(*row);
  table.blankLines += static_cast<int>(above) - table.titleLines;
  table.rows.erase(table.rows.begin(), names);
  table.lines.erase(table.lines.begin(), table.lines.begin() + above);
}

Result<TextTable> rawTable(std::string text, char separator, TextOrigin origin) {
  if (separator == ' ') text = withSingleBlanks(text);
  const char divider = separator == noSeparator ? '\x1F' : separator;
  const auto quotes = origin == TextOrigin::file ? RecordReader::StrayQuotes::refused
                                                 : RecordReader::StrayQuotes::kept;
  RecordReader reader("line", text, divider, quotes);
  TextTable table;
  while (!reader.atEnd()) {
    auto record = reader.next();
    if (!record) return Error{"line " + record.error().where.substr(5), record.error().text};
    std::vector<std::string> row;
    for (const FieldSpan field : record->fields) row.push_back(cellText(field.in(text)));
    if (origin == TextOrigin::file && separator != noSeparator && isBlankLine(row)) {
      ++table.blankLines;
      continue;
    }
    table.rows.push_back(std::move(row));
    table.lines.push_back(record->line);
  }
  while (origin == TextOrigin::file && !table.rows.empty() && isBlank(table.rows.back()))
    table.rows.pop_back();
  table.lines.resize(table.rows.size());
  if (origin == TextOrigin::file && separator != noSeparator) leaveOutTitles(table);
  return table;
}

std::size_t widestRow(const TextTable& table, TextOrigin origin) {
  std::size_t width = 0;
  for (const auto& row : table.rows)
    width = std::max(width, origin == TextOrigin::file ? usedLength(row) : row.size());
  return width;
}

bool isEven(const TextTable& table, TextOrigin origin) {
  const std::size_t first = table.rows.front().size();
  const std::size_t width = table.rows.size() > 1 ? table.rows[1].size() : first;
  if (first != width && (origin == TextOrigin::clipboard || first + 1 != width)) return false;
  return std::all_of(table.rows.begin() + 1, table.rows.end(),
                     [width](const auto& row) { return row.size() == width || isBlankLine(row); });
}

}  // namespace

Result<std::string> foreignText(std::string bytes) {
  std::string text = utf8FromFile(std::move(bytes));
  if (text.find('\0') != std::string::npos) return Error{"", "This is no text file."};
  const auto plain = static_cast<std::ptrdiff_t>(plainLength(text));
  std::replace_if(text.begin() + plain, text.end(), isControl, ' ');
  return text;
}

Result<TextTable> textTable(std::string text, char separator, TextOrigin origin) {
  auto table = rawTable(std::move(text), separator, origin);
  if (!table) return table;
  const std::size_t width = widestRow(*table, origin);
  for (std::size_t i = 0; i < table->rows.size(); ++i) {
    auto& row = table->rows[i];
    if (row.size() < width && !isBlankLine(row) && table->shortRows++ == 0) {
      table->firstShortRow = static_cast<int>(i);
      table->shortLength = row.size();
    }
    row.resize(width);
  }
  return table;
}

// What would break a line is a blank.
std::string cellText(std::string_view field) {
  const auto breaks = [](char c) { return c == '\t' || c == '\n' || c == '\r'; };
  field = withoutTextMark(trimmed(field));
  std::string line(field);
  if (std::none_of(field.begin(), field.end(), breaks)) return line;
  std::replace_if(line.begin(), line.end(), breaks, ' ');
  return std::string(trimmed(line));
}

std::string meaningOf(const std::string& about, const std::vector<ValueLabel>& valueLabels) {
  constexpr std::size_t longest = 120;
  std::string values;
  for (const auto& [value, label] : valueLabels) {
    if (values.size() > longest) {
      values += ", ...";
      break;
    }
    values += (values.empty() ? "" : ", ") + value + " = " + label;
  }
  if (values.empty()) return cellText(about);
  return cellText(about + (about.empty() ? "" : " ") + "(" + values + ")");
}

TextTable textTable(const CutTable& cut, bool withoutTitles) {
  TextTable table;
  if (cut.namesApart) {
    auto& names = table.rows.emplace_back();
    for (const CutColumn& column : cut.columns) names.push_back(cellText(column.name));
    table.lines.push_back(0);
  }
  for (std::size_t row = 0; row < cut.rows(); ++row) {
    auto& fields = table.rows.emplace_back();
    for (std::size_t column = 0; column < cut.columns.size(); ++column)
      fields.push_back(cellText(cut.text(cut.field(row, column))));
    table.lines.push_back(cut.rowNumbers[row]);
  }
  if (!cut.namesApart && withoutTitles) leaveOutTitles(table);
  return table;
}

std::vector<char> evenSeparators(const std::string& text, TextOrigin origin) {
  std::vector<char> even;
  for (const char separator : {'\t', ';', ',', ' '}) {
    if (text.find(separator) == std::string::npos) continue;
    const auto table = rawTable(text, separator, origin);
    if (table && !table->rows.empty() && table->rows.front().size() > 1 && isEven(*table, origin))
      even.push_back(separator);
  }
  return even;
}

}  // namespace tolmer
