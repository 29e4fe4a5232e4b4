#include "foreign/cut_format.h"

#include <charconv>
#include <cmath>
#include <optional>

#include "base/data_limits.h"
#include "base/tabbed_text.h"
#include "base/text_encoding.h"

namespace tolmer {
namespace {

constexpr std::string_view firstLine = "tolimport 1";
constexpr std::string_view lastLine = "end";
// In the order of CutKind; a field with a text has its letter as a capital.
constexpr std::string_view kindLetters = "-npchbdtem";

char capital(char letter) { return static_cast<char>(letter - 'a' + 'A'); }

class Writer {
 public:
  void line(std::string_view word, std::initializer_list<std::string_view> fields) {
    out_ += word;
    for (const auto field : fields) {
      out_ += '\t';
      appendEscaped(out_, field);
    }
    out_ += '\n';
  }

  void book(const CutBook& book) {
    line("book", {book.format, std::to_string(book.sheet)});
    for (const SheetInfo& sheet : book.sheets)
      line("sheet", {sheet.name, sheet.hidden ? "1" : "0", sheet.hasCells ? "1" : "0"});
    for (const std::string& remark : book.remarks) line("remark", {remark});
    table(book.table);
  }

  std::string take() { return std::move(out_); }

 private:
  void table(const CutTable& table) {
    line("table", {table.title, table.namesApart ? "1" : "0", std::to_string(table.rowsInAll),
                   std::to_string(table.hiddenRows), std::to_string(table.mergedAreas),
                   std::to_string(table.cutTexts)});
    for (const std::string& text : table.texts) line("text", {text});
    for (const CutColumn& column : table.columns) this->column(column);
    for (std::size_t row = 0; row < table.rows(); ++row) this->row(table, row);
  }

  void column(const CutColumn& column) {
    line("column", {std::to_string(column.number), column.name, column.label,
                    std::to_string(column.different)});
    out_ += "counts";
    for (const int count : column.counts) out_ += "\t" + std::to_string(count);
    out_ += '\n';
    for (const auto& [value, label] : column.valueLabels) line("label", {value, label});
    for (const auto& [code, count] : column.missingCodes)
      line("code", {code, std::to_string(count)});
  }

  void row(const CutTable& table, std::size_t row) {
    out_ += "row\t" + std::to_string(table.rowNumbers[row]);
    for (std::size_t column = 0; column < table.columns.size(); ++column) {
      out_ += '\t';
      const CutField& field = table.field(row, column);
      if (field.kind == CutKind::empty) continue;
      const char letter = kindLetters[static_cast<std::size_t>(field.kind)];
      out_ += field.text == noText ? letter : capital(letter);
      out_ += field.text == noText ? shortestDigits(field.number) : std::to_string(field.text);
    }
    out_ += '\n';
  }

  std::string out_ = std::string(firstLine) + "\n";
};

template <class Number>
bool readWhole(std::string_view text, Number& number) {
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  return read.ec == std::errc() && read.ptr == text.data() + text.size();
}

// Every line must be one of those written above, in their order; the first that is not ends it.
class Reader {
 public:
  explicit Reader(std::string_view text) : rest_(text) {}

  Result<CutBook> read() {
    if (!nextLine() || line_ != firstLine || !nextLine()) return fault();
    if (takeWord("refused")) return refusal();
    if (!takeBook()) return fault();
    while (takeSheet() || takeRemark()) {
    }
    if (!takeTable()) return fault();
    while (takeText()) {
    }
    while (takeColumn()) {
    }
    while (takeRow()) {
    }
    if (damaged_ || !atEnd() || book_.sheet >= book_.sheets.size()) return fault();
    return std::move(book_);
  }

 private:
  static Error fault() { return {"", "what came back is no whole table"}; }

  bool nextLine() {
    const auto end = rest_.find('\n');
    if (end == rest_.npos) return false;
    line_ = rest_.substr(0, end);
    rest_.remove_prefix(end + 1);
    return true;
  }

  bool atEnd() const { return line_ == lastLine && rest_.empty(); }

  // Is it this line? Then its fields follow.
  bool takeWord(std::string_view word) {
    if (damaged_ || !line_.starts_with(word) ||
        (line_.size() > word.size() && line_[word.size()] != '\t'))
      return false;
    line_.remove_prefix(word.size());
    return true;
  }

  std::string_view rawField() {
    if (!line_.starts_with('\t')) {
      damaged_ = true;
      return {};
    }
    const auto end = std::min(line_.find('\t', 1), line_.size());
    const auto field = line_.substr(1, end - 1);
    line_.remove_prefix(end);
    return field;
  }

  std::string textField() {
    auto text = unescaped(rawField());
    damaged_ = damaged_ || !text;
    return text ? withoutControls(*std::move(text)) : std::string();
  }

  int countField() {
    int count = 0;
    damaged_ = damaged_ || !readWhole(rawField(), count) || count < 0;
    return count;
  }

  // The line is used up, and another one follows.
  bool lineDone() {
    damaged_ = damaged_ || !line_.empty() || !nextLine();
    return !damaged_;
  }

  Result<CutBook> refusal() {
    Error refused{textField(), textField()};
    if (!lineDone() || !atEnd() || refused.text.empty()) return fault();
    return refused;
  }

  bool takeBook() {
    if (!takeWord("book")) return false;
    book_.format = textField();
    book_.sheet = static_cast<std::size_t>(countField());
    return lineDone();
  }

  bool takeSheet() {
    if (!takeWord("sheet")) return false;
    SheetInfo& sheet = book_.sheets.emplace_back();
    sheet.name = textField();
    sheet.hidden = countField() != 0;
    sheet.hasCells = countField() != 0;
    return lineDone();
  }

  bool takeRemark() {
    if (!takeWord("remark")) return false;
    book_.remarks.push_back(textField());
    return lineDone();
  }

  bool takeTable() {
    if (!takeWord("table")) return false;
    table_.title = textField();
    table_.namesApart = countField() != 0;
    table_.rowsInAll = countField();
    table_.hiddenRows = countField();
    table_.mergedAreas = countField();
    table_.cutTexts = countField();
    return lineDone();
  }

  bool takeText() {
    if (!takeWord("text")) return false;
    table_.texts.push_back(textField());
    return lineDone();
  }

  bool takeColumn() {
    if (!takeWord("column")) return false;
    CutColumn& column = table_.columns.emplace_back();
    column.number = countField();
    column.name = textField();
    column.label = textField();
    if (!line_.empty()) column.different = countField();
    if (!lineDone() || !takeWord("counts")) return false;
    for (int& count : column.counts) count = countField();
    while (lineDone())
      if (takeWord("label"))
        column.valueLabels.push_back({textField(), textField()});
      else if (takeWord("code"))
        column.missingCodes.push_back({textField(), countField()});
      else
        return true;
    return false;
  }

  bool takeRow() {
    if (!takeWord("row")) return false;
    table_.rowNumbers.push_back(countField());
    if (table_.rows() * table_.columns.size() > mostCutFields) damaged_ = true;
    for (std::size_t column = 0; column < table_.columns.size() && !damaged_; ++column)
      table_.fields.push_back(field(rawField()));
    return lineDone();
  }

  CutField field(std::string_view text) {
    CutField field;
    if (text.empty()) return field;
    const bool isText = text[0] >= 'A' && text[0] <= 'Z';
    const char letter = isText ? static_cast<char>(text[0] - 'A' + 'a') : text[0];
    const auto kind = kindLetters.find(letter);
    if (kind == kindLetters.npos || kind == 0) {
      damaged_ = true;
      return field;
    }
    field.kind = static_cast<CutKind>(kind);
    text.remove_prefix(1);
    const bool wantsText = field.kind == CutKind::text || field.kind == CutKind::error;
    if (isText)
      damaged_ = damaged_ || !readWhole(text, field.text) || field.text >= table_.texts.size() ||
                 field.isNumber() || field.kind == CutKind::date;
    else
      damaged_ =
          damaged_ || !readWhole(text, field.number) || !std::isfinite(field.number) || wantsText;
    return field;
  }

  std::string_view rest_;
  std::string_view line_;
  bool damaged_ = false;
  CutBook book_;
  CutTable& table_ = book_.table;
};

}  // namespace

std::string cutText(const Result<CutBook>& book) {
  Writer writer;
  if (book)
    writer.book(*book);
  else
    writer.line("refused", {book.error().where, book.error().text});
  writer.line(lastLine, {});
  return writer.take();
}

Result<CutBook> bookFromCutText(std::string_view text) { return Reader(text).read(); }

}  // namespace tolmer
