// What cells and formulas are worth.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "formula/sheet_names.h"

namespace tolmer {

// An error is a value: it travels through every calculation that uses it.
enum class FormulaError : std::uint8_t {
  none,
  divisionByZero,
  value,      // text, or several cells, where a number is needed; no place for a RANK
  reference,  // a cell outside the sheet, or one that has been deleted
  name,       // nothing is called so
  number,     // no real number, or one too large
  cycle,      // the cell depends on itself
  syntax,
};

inline constexpr std::array<std::string_view, 8> formulaErrorTexts = {
    "", "#DIV/0!", "#VALUE!", "#REF!", "#NAME?", "#NUM!", "#CYCLE", "#SYNTAX"};

// As a cell shows it; empty for none.
constexpr std::string_view errorText(FormulaError error) {
  return formulaErrorTexts[static_cast<std::size_t>(error)];
}

struct FormulaValue {
  FormulaError error = FormulaError::none;
  double number = 0;  // finite, and 0 where there is an error

  friend bool operator==(const FormulaValue&, const FormulaValue&) = default;
};

struct CellValue {
  enum class Kind : std::uint8_t { empty, number, text, error };
  Kind kind;
  FormulaError error;       // of kind error alone
  double number;            // of kind number alone
  const std::string* text;  // of kind text alone, owned by the sheet or by the formula

  static CellValue ofNumber(double number) {
    return {Kind::number, FormulaError::none, number, nullptr};
  }
  static CellValue ofError(FormulaError error) { return {Kind::error, error, 0, nullptr}; }
  static CellValue ofText(const std::string& text) {
    return {Kind::text, FormulaError::none, 0, &text};
  }
  static CellValue ofText(std::string&&) = delete;
  static CellValue empty() { return {Kind::empty, FormulaError::none, 0, nullptr}; }
};

// The sheet, as formulas see it. It is asked for cells inside its size alone.
class CellSource {
 public:
  virtual ~CellSource() = default;
  // A cell with a formula is worth the last result of it.
  virtual CellValue cellValue(CellAddress cell) const = 0;
};

}  // namespace tolmer
