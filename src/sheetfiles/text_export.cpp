#include "sheetfiles/text_export.h"

#include <cmath>
#include <string_view>

#include "base/tabbed_text.h"
#include "sheet/new_sheet.h"
#include "textimport/typed_number.h"

namespace tolmer {
namespace {

bool needsQuotes(std::string_view text, char separator) {
  if (text.empty()) return false;
  return text.find(separator) != text.npos || text.find_first_of("\"\r\n") != text.npos ||
         text.front() == ' ' || text.front() == '\t' || text.back() == ' ' || text.back() == '\t';
}

void appendField(std::string& out, std::string_view text, char separator) {
  if (!needsQuotes(text, separator)) {
    out += text;
    return;
  }
  out += '"';
  for (const char c : text) {
    if (c == '"') out += '"';
    out += c;
  }
  out += '"';
}

std::string exportedText(const SheetContent& sheet, int row, int column) {
  const DataCell& cell = sheet.cells(row, column);
  if (row == 0 && cell.text.empty()) return defaultHeading(column, sheet.variables());
  if (cell.kind == DataCell::Kind::text) return withTextMark(cell.text);
  if (cell.kind == DataCell::Kind::number || cell.kind == DataCell::Kind::formula)
    return std::isfinite(cell.number) ? exactText(cell.number) : "";
  return {};
}

bool hasData(const SheetContent& sheet, int column) {
  for (int row = 1; row <= sheet.observations(); ++row)
    if (sheet.cells(row, column).kind != DataCell::Kind::empty) return true;
  return false;
}

bool isNamed(const SheetContent& sheet, int column) {
  const std::string& heading = sheet.cells(0, column).text;
  return !heading.empty() && heading != defaultHeading(column, sheet.variables());
}

}  // namespace

std::string sheetText(const SheetContent& sheet, char separator) {
  int last = sheet.variables();
  while (last > 0 && !hasData(sheet, last) && !isNamed(sheet, last)) --last;
  const int first = hasData(sheet, 0) ? 0 : 1;
  const int rows = last >= first ? lastUsedRow(sheet) : -1;
  std::string out;
  for (int row = 0; row <= rows; ++row)
    for (int column = first; column <= last; ++column) {
      appendField(out, exportedText(sheet, row, column), separator);
      out += column < last ? separator : '\n';
    }
  return out;
}

}  // namespace tolmer
