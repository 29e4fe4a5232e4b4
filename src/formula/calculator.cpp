#include "formula/calculator.h"

#include <utility>

namespace tolmer {

Calculator::Calculator(SheetSize size)
    : size_(size),
      formulas_(static_cast<std::size_t>(size.rows + 1) *
                static_cast<std::size_t>(size.variables + 1)),
      graph_(size) {}

void Calculator::setFormula(CellAddress cell, Formula formula) {
  graph_.set(cell, references(formula, cell.row));
  formulas_[indexOf(cell)] = std::move(formula);
}

void Calculator::removeFormula(CellAddress cell) {
  graph_.remove(cell);
  formulas_[indexOf(cell)].reset();
}

const Formula* Calculator::formulaAt(CellAddress cell) const {
  const std::optional<Formula>& formula = formulas_[indexOf(cell)];
  return formula ? &*formula : nullptr;
}

void Calculator::recalculate(std::span<const CellAddress> changed, const CellSource& cells,
                             const Store& store) const {
  const RecalculationOrder order = graph_.orderAfter(changed);
  for (const CellAddress cell : order.cycles) store(cell, {FormulaError::cycle, 0});
  for (const CellAddress cell : order.cells)
    store(cell, evaluate(*formulas_[indexOf(cell)], cells, cell.row));
}

void Calculator::recalculateAll(const CellSource& cells, const Store& store) const {
  std::vector<CellAddress> all;
  for (int row = 1; row <= size_.rows; ++row)
    for (int column = 0; column <= size_.variables; ++column)
      if (formulas_[indexOf({row, column})]) all.push_back({row, column});
  recalculate(all, cells, store);
}

}  // namespace tolmer
