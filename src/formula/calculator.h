// All formulas of a sheet, which of them has to be calculated before which, and what after a
// change.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <span>
#include <vector>

#include "formula/formula.h"
#include "formula/sheet_names.h"

namespace tolmer {

struct RecalculationOrder {
  std::vector<CellAddress> cells;   // formulas, each after all it depends on, cycles left out
  std::vector<CellAddress> cycles;  // formulas that depend on themselves, through others or not
};

// Formulas of one sheet and the cells that each depends on. Equal ranges of several formulas are
// kept once, so that a column of 500 averages over the same 500 cells is 1000 links.
class DependencyGraph {
 public:
  explicit DependencyGraph(SheetSize size);

  // The cell holds a formula that depends on these cells, all inside the sheet.
  void set(CellAddress formula, const std::vector<CellRange>& precedents);
  // It holds none; nothing happens where there was none.
  void remove(CellAddress formula);

  // The formulas among the changed cells and all that depend on any of them.
  RecalculationOrder orderAfter(std::span<const CellAddress> changed) const;

 private:
  friend class DependencySearch;

  struct Cell {
    bool isFormula = false;
    std::vector<CellRange> precedents;
    std::vector<int> dependents;  // formulas that name this cell alone
  };
  struct Range {
    CellRange cells;
    std::vector<int> dependents;
  };

  int indexOf(CellAddress cell) const { return cell.row * (size_.variables + 1) + cell.column; }
  CellAddress addressOf(int index) const {
    return {index / (size_.variables + 1), index % (size_.variables + 1)};
  }
  std::vector<int>& dependentsOn(const CellRange& precedent);
  int newRange(const CellRange& cells);
  void dropIfUnused(const CellRange& precedent);

  SheetSize size_;
  std::vector<Cell> cells_;
  std::vector<Range> ranges_;
  std::vector<int> unusedRanges_;
  std::map<CellRange, int> rangeNumbers_;
  std::vector<std::vector<int>> rangesOfColumn_;
};

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
