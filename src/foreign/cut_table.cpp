#include "foreign/cut_table.h"

#include <charconv>

#include "foreign/date_text.h"
#include "formula/sheet_names.h"

namespace tolmer {
std::string shortestDigits(double number) {
  std::array<char, 32> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  return {digits.data(), end};
}

// Of a formula's addresses column A is number 0.
std::string spreadsheetPlace(int row, int column) {
  return columnLetters(column - 1) + std::to_string(row);
}

std::vector<std::size_t> sheetsToRead(const CutBook& book) {
  std::vector<std::size_t> order;
  for (const bool hidden : {false, true})
    for (std::size_t sheet = 0; sheet < book.sheets.size(); ++sheet)
      if (book.sheets[sheet].hasCells && book.sheets[sheet].hidden == hidden)
        order.push_back(sheet);
  return order;
}

std::string CutTable::text(const CutField& field) const {
  if (field.text != noText) return texts[field.text];
  if (field.kind == CutKind::empty) return {};
  return field.kind == CutKind::date ? dateText(field.number) : shortestDigits(field.number);
}

std::string CutTable::place(int rowNumber, std::size_t column) const {
  if (namesApart) return "case " + std::to_string(rowNumber) + ", " + columns[column].name;
  return spreadsheetPlace(rowNumber, columns[column].number);
}

}  // namespace tolmer
