#include "editor/sheet_entry.h"

#include <algorithm>

#include "editor/sheet_number.h"

namespace tolmer {
namespace {

bool isText(CellAddress at) { return at.row == 0 || at.column == 0; }

DataCell textCell(std::string_view typed) {
  std::string text(typed);
  for (char& c : text)
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) c = ' ';
  if (withoutOuterBlanks(text).empty()) return {};
  return {.kind = DataCell::Kind::text, .text = std::move(text)};
}

Error refusal(std::string_view text, bool tooLarge) {
  const std::string quoted = '"' + std::string(text) + '"';
  if (tooLarge) return {"", quoted + " is too large a number."};
  std::string withPoint(text);
  std::ranges::replace(withPoint, ',', '.');
  if (readNumber(withPoint).kind == NumberReading::Kind::number)
    return {"", quoted + " has a comma. Write the decimal mark as a point: " + withPoint + "."};
  return {"", quoted + " is not a number."};
}

}  // namespace

Result<DataCell> cellFromText(SheetEdit& edit, CellAddress at, std::string_view typed) {
  if (isText(at)) return textCell(typed);
  const std::string_view text = withoutOuterBlanks(typed);
  if (text.empty()) return DataCell{};
  if (text.starts_with('=')) {
    if (const auto formula = parseFormula(text, edit.names(), 0); !formula) return formula.error();
    return edit.formulaCell(std::string(text));
  }
  const NumberReading reading = readNumber(text);
  if (reading.kind == NumberReading::Kind::number)
    return DataCell{.kind = DataCell::Kind::number, .number = reading.number};
  return refusal(text, reading.kind == NumberReading::Kind::tooLarge);
}

std::string editText(const DataCell& cell) {
  return cell.kind == DataCell::Kind::number ? exactText(cell.number) : cell.text;
}

}  // namespace tolmer
