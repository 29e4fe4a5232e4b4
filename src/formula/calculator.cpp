#include "formula/calculator.h"

#include <algorithm>
#include <utility>

namespace tolmer {

// Strongly connected components (Tarjan 1972, SIAM Journal on Computing 1, 146-160), with a stack
// of its own: a chain may be as long as the sheet has cells. Components come out with the last
// dependents first. Nodes are the cells and, behind them, the ranges.
class DependencySearch {
 public:
  explicit DependencySearch(const DependencyGraph& graph)
      : graph_(graph), numbers_(graph.cells_.size() + graph.ranges_.size(), 0), lowest_(numbers_) {}

  RecalculationOrder run(std::span<const CellAddress> changed) {
    for (const CellAddress cell : changed)
      if (graph_.size_.holds(cell) && numbers_[graph_.indexOf(cell)] == 0)
        visitFrom(graph_.indexOf(cell));
    std::reverse(order_.cells.begin(), order_.cells.end());
    return std::move(order_);
  }

 private:
  static constexpr int finished = -1;  // in numbers_: in a component already; 0: not yet seen

  struct Visit {
    int node;
    std::size_t next;  // of its successors
  };

  int cellCount() const { return static_cast<int>(graph_.cells_.size()); }

  void visitFrom(int start) {
    enter(start);
    while (!visits_.empty()) {
      const int node = visits_.back().node;
      const int successor = nextSuccessor(visits_.back());
      if (successor < 0) {
        leave(node);
      } else if (numbers_[successor] == 0) {
        enter(successor);
      } else if (numbers_[successor] != finished) {
        lowest_[node] = std::min(lowest_[node], numbers_[successor]);
      }
    }
  }

  void enter(int node) {
    numbers_[node] = lowest_[node] = ++last_;
    open_.push_back(node);
    visits_.push_back({node, 0});
  }

  void leave(int node) {
    visits_.pop_back();
    if (!visits_.empty()) {
      int& lowest = lowest_[visits_.back().node];
      lowest = std::min(lowest, lowest_[node]);
    }
    if (lowest_[node] == numbers_[node]) closeComponent(node);
  }

  // Its nodes lie on top of the open ones.
  void closeComponent(int root) {
    const auto begin = std::find(open_.rbegin(), open_.rend(), root).base() - 1;
    const bool isCycle = open_.end() - begin > 1 || dependsOnItself(root);
    for (auto node = begin; node != open_.end(); ++node) {
      numbers_[*node] = finished;
      if (*node >= cellCount() || !graph_.cells_[*node].isFormula) continue;
      (isCycle ? order_.cycles : order_.cells).push_back(graph_.addressOf(*node));
    }
    open_.erase(begin, open_.end());
  }

  bool dependsOnItself(int node) const {
    if (node >= cellCount()) return false;
    const std::vector<int>& dependents = graph_.cells_[node].dependents;
    return std::find(dependents.begin(), dependents.end(), node) != dependents.end();
  }

  // -1 behind the last. A cell leads to the formulas that name it and to the ranges that hold it,
  // a range to its formulas.
  int nextSuccessor(Visit& visit) const {
    if (visit.node >= cellCount()) {
      const std::vector<int>& dependents = graph_.ranges_[visit.node - cellCount()].dependents;
      return visit.next < dependents.size() ? dependents[visit.next++] : -1;
    }
    const std::vector<int>& dependents = graph_.cells_[visit.node].dependents;
    if (visit.next < dependents.size()) return dependents[visit.next++];
    const CellAddress cell = graph_.addressOf(visit.node);
    const std::vector<int>& ranges = graph_.rangesOfColumn_[cell.column];
    while (visit.next - dependents.size() < ranges.size()) {
      const int range = ranges[visit.next++ - dependents.size()];
      if (graph_.ranges_[range].cells.holds(cell)) return cellCount() + range;
    }
    return -1;
  }

  const DependencyGraph& graph_;
  std::vector<int> numbers_, lowest_;
  std::vector<int> open_;
  std::vector<Visit> visits_;
  int last_ = 0;
  RecalculationOrder order_;
};

DependencyGraph::DependencyGraph(SheetSize size)
    : size_(size),
      cells_(static_cast<std::size_t>(size.rows + 1) *
             static_cast<std::size_t>(size.variables + 1)),
      rangesOfColumn_(static_cast<std::size_t>(size.variables) + 1) {}

void DependencyGraph::set(CellAddress formula, const std::vector<CellRange>& precedents) {
  remove(formula);
  Cell& cell = cells_[indexOf(formula)];
  cell.isFormula = true;
  cell.precedents = precedents;
  for (const CellRange& precedent : precedents) dependentsOn(precedent).push_back(indexOf(formula));
}

void DependencyGraph::remove(CellAddress formula) {
  Cell& cell = cells_[indexOf(formula)];
  for (const CellRange& precedent : cell.precedents) {
    std::vector<int>& dependents = dependentsOn(precedent);
    const auto place = std::find(dependents.begin(), dependents.end(), indexOf(formula));
    *place = dependents.back();
    dependents.pop_back();
    dropIfUnused(precedent);
  }
  cell.precedents.clear();
  cell.isFormula = false;
}

RecalculationOrder DependencyGraph::orderAfter(std::span<const CellAddress> changed) const {
  return DependencySearch(*this).run(changed);
}

std::vector<int>& DependencyGraph::dependentsOn(const CellRange& precedent) {
  if (precedent.first == precedent.last) return cells_[indexOf(precedent.first)].dependents;
  const auto [place, isNew] = rangeNumbers_.try_emplace(precedent, 0);
  if (isNew) place->second = newRange(precedent);
  return ranges_[place->second].dependents;
}

int DependencyGraph::newRange(const CellRange& cells) {
  int number = static_cast<int>(ranges_.size());
  if (unusedRanges_.empty()) {
    ranges_.push_back({cells, {}});
  } else {
    number = unusedRanges_.back();
    unusedRanges_.pop_back();
    ranges_[number].cells = cells;
  }
  for (int column = cells.first.column; column <= cells.last.column; ++column)
    rangesOfColumn_[column].push_back(number);
  return number;
}

void DependencyGraph::dropIfUnused(const CellRange& precedent) {
  const auto place = rangeNumbers_.find(precedent);
  if (place == rangeNumbers_.end() || !ranges_[place->second].dependents.empty()) return;
  for (int column = precedent.first.column; column <= precedent.last.column; ++column)
    std::erase(rangesOfColumn_[column], place->second);
  unusedRanges_.push_back(place->second);
  rangeNumbers_.erase(place);
}

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
