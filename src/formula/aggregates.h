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
// over errors. Sums are compensated (Neumaier 1974); the variance has n - 1 as divisor, VARP n.
//
// CORREL takes the pairs of numbers in two ranges of one shape and leaves out the other pairs.
// RANK is 1 for the largest of the range, or with an order other than 0 for the smallest; equal
// numbers have the same rank, and a number that is not there is #VALUE!.
CellValue aggregateResult(FormulaFunction function, std::span<const Operand> operands,
                          const CellSource& cells);

}  // namespace tolmer
