// All formulas of a sheet, and what has to be calculated after a change.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "formula/dependency_graph.h"
#include "formula/formula.h"

namespace tolmer {

class Calculator {
 public:
  // Puts a formula's new result into the sheet, where the CellSource finds it.
  using Store = std::function<void(CellAddress cell, const FormulaValue& value)>;

  explicit Calculator(SheetSize size);

  // Of cells inside the sheet. Nothing is calculated yet.
  void setFormula(CellAddress cell, Formula formula);
  void removeFormula(CellAddress cell);
  const Formula* formulaAt(CellAddress cell) const;  // nullptr where there is none

  // Calculates the formulas among the changed cells and all that depend on them, each once; cells
  // of a cycle get #CYCLE, those behind them the error as it travels.
  void recalculate(std::span<const CellAddress> changed, const CellSource& cells,
                   const Store& store) const;
  void recalculateAll(const CellSource& cells, const Store& store) const;

 private:
  std::size_t indexOf(CellAddress cell) const {
    return static_cast<std::size_t>(cell.row) * (static_cast<std::size_t>(size_.variables) + 1) +
           static_cast<std::size_t>(cell.column);
  }

  SheetSize size_;
  std::vector<std::optional<Formula>> formulas_;
  DependencyGraph graph_;
};

}  // namespace tolmer
