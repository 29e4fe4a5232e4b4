#include "foreign/readers/xlsx_sheet.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "base/data_limits.h"
#include "foreign/readers/date_cells.h"
#include "textimport/typed_number.h"

namespace tolmer {
namespace {

constexpr int lastRow = 1'048'576;
constexpr int lastColumn = 16'384;

// More of a text than is ever kept.
constexpr std::size_t longestValue = 4 * longestCutText;

std::optional<int> wholeNumber(std::string_view text) {
  int number = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  if (read.ec != std::errc() || read.ptr != text.data() + text.size()) return std::nullopt;
  return number;
}

// The column of an address such as "J6"; nullopt where it is none.
std::optional<int> columnOfAddress(std::string_view address) {
  int column = 0;
  std::size_t letters = 0;
  for (; letters < address.size() && address[letters] >= 'A' && address[letters] <= 'Z'; ++letters)
    if ((column = column * 26 + (address[letters] - 'A' + 1)) > lastColumn) return std::nullopt;
  if (column == 0 || !wholeNumber(address.substr(letters))) return std::nullopt;
  return column;
}

}  // namespace

std::string withoutXlsxEscapes(std::string text) {
  constexpr std::size_t length = 7;  // _x000A_
  for (std::size_t at = text.find("_x"); at != text.npos; at = text.find("_x", at + 1)) {
    int code = 0;
    if (at + length > text.size() || text[at + length - 1] != '_') continue;
    const char* digits = text.data() + at + 2;
    const auto read = std::from_chars(digits, digits + 4, code, 16);
    if (read.ec != std::errc() || read.ptr != digits + 4 || code == 0 || code > 0x7F) continue;
    text.replace(at, length, 1, static_cast<char>(code));
  }
  return text;
}

void XlsxSheetSink::damaged(std::string_view what) { stop({"cell " + place(), std::string(what)}); }

void XlsxSheetSink::start(std::string_view name, const XmlAttributes& attributes) {
  takesText_ = false;
  if (name == "c")
    startCell(attributes);
  else if (name == "v" || (name == "t" && !inPhonetic_))
    takesText_ = true;
  else if (name == "f")
    hasFormula_ = true;
  else if (name == "row")
    startRow(attributes);
  else if (name == "rPh")
    inPhonetic_ = true;
  else if (name == "mergeCell")
    ++collector_.table().mergedAreas;
}

// Rows and cells may lack their address: then each follows the one before.
void XlsxSheetSink::startRow(const XmlAttributes& attributes) {
  const std::string_view number = attributes["r"];
  const int before =
      std::exchange(row_, number.empty() ? row_ + 1 : wholeNumber(number).value_or(0));
  column_ = 0;
  if (row_ <= before || row_ > lastRow)
    return stop({"row after " + std::to_string(before), "its number makes no sense"});
  const std::string_view hidden = attributes["hidden"];
  collector_.beginRow(row_, hidden == "1" || hidden == "true");
}

void XlsxSheetSink::startCell(const XmlAttributes& attributes) {
  const std::string_view address = attributes["r"];
  column_ = address.empty() ? column_ + 1 : columnOfAddress(address).value_or(0);
  if (row_ == 0 || column_ < 1 || column_ > lastColumn)
    return stop({"row " + std::to_string(row_), "a cell lies outside the sheet"});
  type_ = attributes["t"];
  const std::string_view style = attributes["s"];
  style_ =
      style.empty() ? 0 : static_cast<std::size_t>(std::max(wholeNumber(style).value_or(0), 0));
  value_.clear();
  hasFormula_ = false;
}

void XlsxSheetSink::text(std::string_view text) {
  if (takesText_ && value_.size() < longestValue) value_ += text;
}

void XlsxSheetSink::end(std::string_view name) {
  if (name == "c")
    endCell();
  else if (name == "rPh")
    inPhonetic_ = false;
  takesText_ = false;
}

void XlsxSheetSink::endCell() {
  if (value_.empty()) {
    if (hasFormula_ && type_ != "str" && unsolved_.empty()) unsolved_ = place();
    return;
  }
  if (type_ == "s") {
    const auto number = wholeNumber(value_);
    if (!number || *number < 0) return damaged("its text is not among the workbook's texts");
    return collector_.putLaterText(column_, static_cast<std::uint32_t>(*number));
  }
  if (type_ == "str" || type_ == "inlineStr")
    collector_.putText(column_, CutKind::text, withoutXlsxEscapes(std::move(value_)));
  else if (type_ == "e")
    collector_.putText(column_, CutKind::error, value_);
  else if (type_ == "b")
    collector_.putNumber(column_, CutKind::boolean, value_ == "1" || value_ == "true" ? 1 : 0);
  else
    putNumber();
}

CutKind XlsxSheetSink::kind() const {
  return style_ < styles_.kinds.size() ? styles_.kinds[style_] : CutKind::number;
}

void XlsxSheetSink::putNumber() {
  if (type_ == "d") {
    const auto days = daysOfIsoDate(value_);
    return days ? collector_.putNumber(column_, CutKind::date, *days) : damaged("it is no date");
  }
  const auto read = readNumber(value_);
  if (read.kind == NumberReading::Kind::noNumber)
    return damaged("it should hold a number and does not");
  if (read.kind == NumberReading::Kind::tooLarge)
    return collector_.putText(column_, CutKind::text, value_);
  collector_.putNumber(
      column_, kind(),
      kind() == CutKind::date ? daysOfSerial(read.number, styles_.from1904) : read.number);
}

}  // namespace tolmer
