// The formulas of a sheet kept in step with its cells, and their results.
#pragma once

#include <memory>
#include <vector>

#include "formula/calculator.h"
#include "sheet/sheet_undo.h"

namespace tolmer {

class SheetFormulas {
 public:
  // Reads and calculates what the content holds. The content stays where it is.
  explicit SheetFormulas(SheetContent& content);

  // After a change of cells: reads the changed formulas, calculates what depends on the change and
  // adds the cells with another result to it.
  void follow(SheetChange& change);

  const SheetNames& names() const { return names_; }
  // What a cell of rows 1.. is worth to others.
  CellValue valueOf(CellAddress cell) const;

 private:
  void readAll();
  void read(CellAddress cell);
  void calculate(SheetChange& change);
  FormulaError& errorAt(CellAddress cell);
  const FormulaError& errorAt(CellAddress cell) const;

  SheetContent& content_;
  SheetNames names_;
  std::unique_ptr<Calculator> calculator_;
  std::vector<FormulaError> errors_;  // of the cells with a formula
};

// The headings of row 0, for the names in formulas.
SheetNames namesOf(const SheetContent& content);

}  // namespace tolmer
