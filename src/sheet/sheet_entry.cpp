#include "sheet/sheet_entry.h"

#include <vector>

#include "base/trimmed.h"
#include "textimport/missing_codes.h"
#include "textimport/number_shape.h"
#include "textimport/typed_number.h"

namespace tolmer {
namespace {

bool isText(CellAddress at) { return at.row == 0 || at.column == 0; }

DataCell textCell(std::string_view typed) {
  std::string text(typed);
  for (char& c : text)
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) c = ' ';
  if (trimmed(text).empty()) return {};
  return {.kind = DataCell::Kind::text, .text = std::move(text)};
}

std::string quoted(std::string_view text) { return '"' + std::string(text) + '"'; }

// "--1" is a slip rather than a formula.
bool beginsFormulaBySign(std::string_view text) {
  constexpr std::string_view signs = "+-";
  return signs.find(text[0]) != signs.npos && text.size() > 1 &&
         signs.find(text[1]) == signs.npos && !isMissingMark(text);
}

Result<CellEntry> formulaEntry(SheetEdit& edit, CellAddress at, std::string_view typed) {
  // A cell of the formula's own column may well be meant.
  const auto isUnused = [&](CellAddress cell) {
    if (cell.column == at.column) return false;
    for (int row = 1; row <= edit.content().observations(); ++row)
      if (edit.cell({row, cell.column}).kind != DataCell::Kind::empty) return false;
    return true;
  };
  const auto formula = parseFormula(typed, edit.names(), 0, isUnused);
  if (!formula) return formula.error();
  CellEntry entry{edit.formulaCell(formula->text)};
  const bool hasNamesChosen = formula->text.size() > typed.size() + 1;
  if (hasNamesChosen)
    entry.taken = "Taken with the variable, not the cell of that name: " + formula->text;
  return entry;
}

// All numbers that the text can stand for, in the spelling of the sheet.
std::vector<std::string> meanings(std::string_view text, const NumberShape& shape) {
  using Marks = NumberShape::Marks;
  std::vector<std::string> found;
  for (const char mark : {'.', ','})
    for (const Percent percent : {Percent::asWritten, Percent::divided}) {
      if (mark == ',' && shape.marks != Marks::comma && shape.marks != Marks::eitherComma) continue;
      if (mark == '.' && shape.marks == Marks::comma) continue;
      if (percent == Percent::divided && !shape.percent) continue;
      if (const auto number = fieldNumber(text, mark, percent)) found.push_back(exactText(*number));
    }
  return found;
}

std::string anyOf(const std::vector<std::string>& spellings) {
  std::string text;
  for (std::size_t i = 0; i < spellings.size(); ++i)
    text += (i == 0 ? "" : i + 1 < spellings.size() ? ", " : " or ") + spellings[i];
  return text;
}

Result<CellEntry> numberEntry(std::string_view text, const NumberShape& shape) {
  const std::vector<std::string> numbers = meanings(text, shape);
  if (numbers.size() > 1)
    return Error{"", quoted(text) + " can be " + anyOf(numbers) + ". Write the one you mean."};
  if (numbers.empty()) return Error{"", quoted(text) + " is not a number."};
  if (shape.marks == NumberShape::Marks::comma) {
    const bool hasComma = text.find(',') != text.npos;
    return Error{"", quoted(text) +
                         (hasComma ? " has a comma. Write the decimal mark as a point: "
                                   : " has points between thousands. Write ") +
                         numbers.front() + "."};
  }
  return CellEntry{{.kind = DataCell::Kind::number, .number = readNumber(numbers.front()).number},
                   quoted(text) + " was taken as " + numbers.front() + "."};
}

Error refusal(const SheetEdit& edit, std::string_view text) {
  std::string why = quoted(text) + " is not a number.";
  if (isMissingMark(text)) why += " Leave the cell empty where a value is missing.";
  if (parseFormula("=" + std::string(text), edit.names(), 0))
    why += " A formula begins with \"=\".";
  return {"", why};
}

}  // namespace

Result<CellEntry> cellFromText(SheetEdit& edit, CellAddress at, std::string_view typed) {
  if (isText(at)) return CellEntry{textCell(typed)};
  const std::string_view text = trimmed(typed);
  if (text.empty()) return CellEntry{};
  if (text.starts_with('=')) return formulaEntry(edit, at, text);
  const NumberReading reading = readNumber(text);
  if (reading.kind == NumberReading::Kind::number)
    return CellEntry{{.kind = DataCell::Kind::number, .number = reading.number}};
  if (reading.kind == NumberReading::Kind::tooLarge)
    return Error{"", quoted(text) + " is too large a number."};
  if (const NumberShape shape = numberShape(text); shape.isNumber())
    return numberEntry(text, shape);
  if (beginsFormulaBySign(text)) return formulaEntry(edit, at, text);
  return refusal(edit, text);
}

std::string editText(const DataCell& cell) {
  return cell.kind == DataCell::Kind::number ? exactText(cell.number) : cell.text;
}

}  // namespace tolmer
