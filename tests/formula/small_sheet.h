// A sheet for tests: what is typed is a number, a text, a formula or nothing.
#pragma once

#include <charconv>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "formula/calculator.h"
#include "formula/formula.h"
#include "support/pairs_in.h"

namespace tolmer::test {

class SmallSheet : public CellSource {
 public:
  explicit SmallSheet(std::vector<std::string> headings = {}, SheetSize size = {})
      : names(size, std::move(headings)), calculator(size) {}

  CellValue cellValue(CellAddress cell) const override {
    const auto place = cells.find(cell);
    return place == cells.end() ? CellValue::empty() : place->second;
  }

  // Without recalculation of what depends on the cell.
  void put(const std::string& address, const std::string& text) {
    const CellAddress cell = addressOf(address);
    cells.erase(cell);
    calculator.removeFormula(cell);
    if (text.starts_with('=')) {
      calculator.setFormula(cell, compileFormula(text, names, 1));
    } else if (double number = 0; isNumber(text, number)) {
      cells[cell] = CellValue::ofNumber(number);
    } else if (!text.empty()) {
      cells[cell] = CellValue::ofText(texts[cell] = text);
    }
  }

  // "A1: north | B1: 2".
  void fill(std::string_view cells) {
    for (const auto& [address, text] : pairsIn(cells, ": ")) put(address, text);
  }

  // Types into a cell; the cells that were calculated, in order.
  std::vector<CellAddress> type(const std::string& address, const std::string& text) {
    put(address, text);
    std::vector<CellAddress> done;
    const CellAddress changed[] = {addressOf(address)};
    calculator.recalculate(changed, *this, [&](CellAddress cell, const FormulaValue& value) {
      done.push_back(cell);
      cells[cell] = value.error == FormulaError::none ? CellValue::ofNumber(value.number)
                                                      : CellValue::ofError(value.error);
    });
    return done;
  }

  FormulaValue value(const std::string& formula, int row = 1, std::uint64_t seed = 1) const {
    return evaluate(compileFormula(formula, names, seed), *this, row);
  }

  static CellAddress addressOf(const std::string& address) {
    const auto digits = address.find_first_of("0123456789");
    return {std::stoi(address.substr(digits)), *columnOfLetters(address.substr(0, digits))};
  }

  SheetNames names;
  Calculator calculator;
  std::map<CellAddress, CellValue> cells;
  std::map<CellAddress, std::string> texts;

 private:
  static bool isNumber(const std::string& text, double& number) {
    const char* const end = text.data() + text.size();
    return std::from_chars(text.data(), end, number).ptr == end && !text.empty();
  }
};

// "7", "#DIV/0!": what a cell would show, in shortest digits.
inline std::string shown(const FormulaValue& value) {
  if (value.error != FormulaError::none) return std::string(errorText(value.error));
  char text[32];
  return {text, std::to_chars(text, text + sizeof text, value.number).ptr};
}

}  // namespace tolmer::test
