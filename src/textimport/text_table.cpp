#include "textimport/text_table.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "base/tabbed_text.h"
#include "base/text_encoding.h"
#include "base/trimmed.h"
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

using Row = TextTable::Row;

std::size_t usedLength(const TextTable& table, const Row& row) {
  std::size_t used = row.length;
  while (used > 0 && table.fields[row.begin + used - 1].length == 0) --used;
  return used;
}

bool isBlank(const TextTable& table, const Row& row) { return usedLength(table, row) == 0; }

bool isBlankLine(const TextTable& table, const Row& row) {
  return row.length == 1 && isBlank(table, row);
}

// The only field that is not empty, or the first where all are; nothing where there are more.
std::optional<std::string_view> onlyField(const TextTable& table, const Row& row) {
  const auto isFilled = [](const FieldSpan& field) { return field.length > 0; };
  const auto begin = table.fields.begin() + static_cast<std::ptrdiff_t>(row.begin);
  const auto end = begin + static_cast<std::ptrdiff_t>(row.length);
  const auto filled = std::find_if(begin, end, isFilled);
  if (filled == end) return std::string_view();
  if (std::any_of(filled + 1, end, isFilled)) return std::nullopt;
  return filled->in(table.content);
}

bool isTitle(const TextTable& table, const Row& row) {
  const auto only = onlyField(table, row);
  return only && !numberShape(*only).isNumber();
}

bool isRowOfNames(const TextTable& table, const Row& row) {
  if (usedLength(table, row) < 3) return false;
  for (std::size_t at = row.begin; at < row.begin + row.length; ++at)
    if (numberShape(table.fields[at].in(table.content)).isNumber()) return false;
  return true;
}

// What spreadsheets and programs write above the names: the study's title, its source, "sep=;".
void leaveOutTitles(TextTable& table) {
  constexpr std::ptrdiff_t most = 20;
  const auto names = std::find_if_not(table.rows.begin(), table.rows.end(),
                                      [&](const Row& row) { return isTitle(table, row); });
  const auto above = names - table.rows.begin();
  if (above == 0 || above > most || names == table.rows.end() || !isRowOfNames(table, *names))
    return;
  for (auto row = table.rows.begin(); row != names; ++row)
    if (!isBlank(table, *row) && table.titleLines++ == 0)
      table.firstTitle = *onlyField(table, *row);
  table.blankLines += static_cast<int>(above) - table.titleLines;
  table.rows.erase(table.rows.begin(), names);
}

// A field's part of the text without what no cell has; a break within it becomes a blank there.
FieldSpan asCell(std::string& text, FieldSpan field) {
  const auto breaks = [](char c) { return c == '\t' || c == '\n' || c == '\r'; };
  const auto begin = text.begin() + field.begin;
  const auto offset = [&text](std::string_view part) {
    return part.empty() ? std::size_t{0} : static_cast<std::size_t>(part.data() - text.data());
  };
  std::string_view kept = withoutTextMark(trimmed(field.in(text)));
  if (std::any_of(kept.begin(), kept.end(), breaks)) {
    std::replace_if(begin, begin + field.length, breaks, ' ');
    kept = trimmed(kept);
  }
  return {offset(kept), kept.size()};
}

Result<TextTable> rawTable(std::string text, char separator, TextOrigin origin) {
  if (separator == ' ') text = withSingleBlanks(text);
  const char divider = separator == noSeparator ? '\x1F' : separator;
  const auto quotes = origin == TextOrigin::file ? RecordReader::StrayQuotes::refused
                                                 : RecordReader::StrayQuotes::kept;
  TextTable table;
  table.content = std::move(text);
  const auto mayEndField = [divider](char c) { return c == divider || c == '\n' || c == '\r'; };
  table.fields.reserve(static_cast<std::size_t>(
      std::count_if(table.content.begin(), table.content.end(), mayEndField) + 1));
  RecordReader reader("line", table.content, divider, quotes);
  while (!reader.atEnd()) {
    auto record = reader.next();
    if (!record) return Error{"line " + record.error().where.substr(5), record.error().text};
    const Row row{table.fields.size(), record->fields.size(), record->line};
    for (const FieldSpan field : record->fields)
      table.fields.push_back(asCell(table.content, field));
    if (origin == TextOrigin::file && separator != noSeparator && isBlankLine(table, row)) {
      table.fields.pop_back();
      ++table.blankLines;
      continue;
    }
    table.rows.push_back(row);
  }
  while (origin == TextOrigin::file && !table.rows.empty() && isBlank(table, table.rows.back()))
    table.rows.pop_back();
  if (origin == TextOrigin::file && separator != noSeparator) leaveOutTitles(table);
  return table;
}

bool isEven(const TextTable& table, TextOrigin origin) {
  const std::size_t first = table.rows.front().length;
  const std::size_t width = table.rows.size() > 1 ? table.rows[1].length : first;
  if (first != width && (origin == TextOrigin::clipboard || first + 1 != width)) return false;
  return std::all_of(table.rows.begin() + 1, table.rows.end(), [&](const Row& row) {
    return row.length == width || isBlankLine(table, row);
  });
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
  for (const Row& row : table->rows)
    table->width =
        std::max(table->width, origin == TextOrigin::file ? usedLength(*table, row) : row.length);
  for (std::size_t i = 0; i < table->rows.size(); ++i) {
    const Row& row = table->rows[i];
    if (row.length < table->width && !isBlankLine(*table, row) && table->shortRows++ == 0) {
      table->firstShortRow = static_cast<int>(i);
      table->shortLength = row.length;
    }
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

namespace {

// A text that stands in many fields is there once.
class CutTableTexts {
 public:
  CutTableTexts(const CutTable& cut, TextTable& table)
      : cut_(cut), table_(table), known_(cut.texts.size()) {}

  void add(const CutField& field) {
    const bool isText = field.kind == CutKind::text && field.text < known_.size();
    if (isText && known_[field.text]) return table_.fields.push_back(*known_[field.text]);
    add(cut_.text(field));
    if (isText) known_[field.text] = table_.fields.back();
  }
  void add(const std::string& text) {
    const std::string cell = cellText(text);
    table_.fields.emplace_back(table_.content.size(), cell.size());
    table_.content += cell;
  }

 private:
  const CutTable& cut_;
  TextTable& table_;
  std::vector<std::optional<FieldSpan>> known_;
};

}  // namespace

TextTable textTable(const CutTable& cut, bool withoutTitles) {
  TextTable table;
  table.width = cut.columns.size();
  CutTableTexts texts(cut, table);
  if (cut.namesApart) {
    for (const CutColumn& column : cut.columns) texts.add(column.name);
    table.rows.push_back({0, table.width, 0});
  }
  for (std::size_t row = 0; row < cut.rows(); ++row) {
    table.rows.push_back(
        {table.fields.size(), table.width, cut.rowNumbers[row], static_cast<int>(row)});
    for (std::size_t column = 0; column < table.width; ++column) texts.add(cut.field(row, column));
  }
  if (!cut.namesApart && withoutTitles) leaveOutTitles(table);
  return table;
}

std::vector<char> evenSeparators(const std::string& text, TextOrigin origin) {
  std::vector<char> even;
  for (const char separator : {'\t', ';', ',', ' '}) {
    if (text.find(separator) == std::string::npos) continue;
    const auto table = rawTable(text, separator, origin);
    if (table && !table->rows.empty() && table->rows.front().length > 1 && isEven(*table, origin))
      even.push_back(separator);
  }
  return even;
}

}  // namespace tolmer
