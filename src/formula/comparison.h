// Texts compared with values, and the criteria of COUNTIF.
#pragma once

#include <string>

#include "formula/formula_value.h"

namespace tolmer {

// Texts are compared without case and without blanks at their ends, which nobody sees in a label.
// With a number, a text is compared by its own number, because the labels' column holds numbers as
// text, too; with an empty cell, it is the same where it is empty. Of = and <> ('n') alone; the
// order of texts differs from country to country and is #VALUE!. One of both is a text, none an
// error.
CellValue comparedWithText(char symbol, const CellValue& left, const CellValue& right);

// What COUNTIF looks for: a value, or a text as ">=5", "<>male", "b*"; "*" stands for any letters
// and "?" for one. Empty cells are found by "" and "=" alone, cells with an error never.
class Criterion {
 public:
  explicit Criterion(const CellValue& wanted);

  // What the criterion itself has for an error: the order of texts.
  FormulaError error() const { return error_; }
  bool isMetBy(const CellValue& cell) const;

 private:
  FormulaError error_ = FormulaError::none;
  char symbol_ = '=';
  bool isNumber_ = true;
  double number_ = 0;
  std::string pattern_{};  // folded
};

}  // namespace tolmer
