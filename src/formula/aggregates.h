// Functions of many values.
#pragma once

#include <span>

#include "formula/formula_functions.h"
#include "formula/formula_value.h"

namespace tolmer {

// One argument: a value, or all cells of a range within the sheet.
struct Operand {
  CellValue value;
  bool isRange;
  CellRange range;
};

// Empty cells and text in ranges do not count; empty and text values, which come from a single
// cell in a calculation, count as 0 and as #VALUE!. The first error is the result, but COUNT passes
// over errors. Sums are compensated (Neumaier 1974); the variance has n - 1 as divisor.
CellValue aggregateResult(FormulaFunction function, std::span<const Operand> operands,
                          const CellSource& cells);

}  // namespace tolmer
