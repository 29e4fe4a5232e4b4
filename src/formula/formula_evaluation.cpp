#include <algorithm>
#include <array>
#include <type_traits>

#include "formula/aggregates.h"
#include "formula/comparison.h"
#include "formula/formula.h"
#include "formula/scalar_functions.h"

namespace tolmer {
namespace {

using Kind = CellValue::Kind;
using StepKind = FormulaStep::Kind;

// The cells of an area for a formula in that row; not cut to the sheet.
CellRange cellsOf(const FormulaArea& area, int row) {
  CellRange cells = area.cells;
  if (area.ownRow) {
    cells.first.row += row;
    cells.last.row += row;
  }
  return cells;
}

// A number, or the error that stands in its place: empty is 0, text no number.
CellValue asNumber(const CellValue& value) {
  if (value.kind == Kind::empty) return CellValue::ofNumber(0);
  if (value.kind == Kind::text) return CellValue::ofError(FormulaError::value);
  return value.kind == Kind::number ? checkedNumber(value.number) : value;
}

bool isError(const CellValue& value) { return value.kind == Kind::error; }

bool isOfTexts(char symbol, const CellValue& left, const CellValue& right) {
  return std::string_view("=<>lgn").find(symbol) != std::string_view::npos && !isError(left) &&
         !isError(right) && (left.kind == Kind::text || right.kind == Kind::text);
}

// The stack below is not to be cleared for every formula.
static_assert(std::is_trivially_default_constructible_v<Operand>);

class Machine {
 public:
  Machine(const Formula& formula, const CellSource& cells, int row)
      : formula_(formula), cells_(cells), row_(row) {}

  CellValue run() {
    const int end = static_cast<int>(formula_.steps.size());
    while (next_ < end) step(formula_.steps[next_++]);
    return asNumber(stack_[0].value);
  }

 private:
  void push(const CellValue& value) { stack_[count_++] = {value, false, {}}; }
  CellValue pop() { return stack_[--count_].value; }
  CellValue& top() { return stack_[count_ - 1].value; }

  void step(const FormulaStep& step) {
    switch (step.kind) {
      case StepKind::number:
        return push(CellValue::ofNumber(step.number));
      case StepKind::text:
        return push(CellValue::ofText(formula_.texts[step.index]));
      case StepKind::row:
        return push(CellValue::ofNumber(step.number + (step.index == 1 ? row_ : 0)));
      case StepKind::error:
        return push(CellValue::ofError(step.error));
      case StepKind::cell:
        return push(cell(formula_.areas[step.index]));
      case StepKind::area:
        return pushArea(formula_.areas[step.index]);
      case StepKind::negate:
        top() = asNumber(top());
        top().number = -top().number;
        return;
      case StepKind::percent:
        top() = asNumber(top());
        top().number /= 100;
        return;
      case StepKind::binary:
        return binary(step.symbol);
      case StepKind::call:
        return call(step);
      case StepKind::branch:
        return branch(step);
      case StepKind::jump:
        next_ = step.index;
        return;
    }
  }

  CellValue cell(const FormulaArea& area) const {
    const CellAddress address = cellsOf(area, row_).first;
    return formula_.size.holds(address) ? cells_.cellValue(address)
                                        : CellValue::ofError(FormulaError::reference);
  }

  void pushArea(const FormulaArea& area) {
    const CellRange cells = cellsOf(area, row_);
    if (!formula_.size.holds(cells.first) || !formula_.size.holds(cells.last))
      return push(CellValue::ofError(FormulaError::reference));
    stack_[count_++] = {CellValue::empty(), true, cells};
  }

  void binary(char symbol) {
    const CellValue second = pop(), first = top();
    if (isOfTexts(symbol, first, second)) {
      top() = comparedWithText(symbol, first, second);
      return;
    }
    const CellValue right = asNumber(second);
    const CellValue left = asNumber(first);
    top() = isError(left)    ? left
            : isError(right) ? right
                             : binaryResult(symbol, left.number, right.number);
  }

  void branch(const FormulaStep& step) {
    const CellValue condition = asNumber(pop());
    if (isError(condition)) {
      push(condition);
      next_ = step.count;
    } else if (condition.number == 0) {
      next_ = step.index;
    }
  }

  void call(const FormulaStep& step) {
    count_ -= step.count;
    const std::span<const Operand> operands(stack_.data() + count_,
                                            static_cast<std::size_t>(step.count));
    push(formOf(step.function).takesMany() ? aggregateResult(step.function, operands, cells_)
                                           : scalarCall(step, operands));
  }

  CellValue scalarCall(const FormulaStep& step, std::span<const Operand> operands) const {
    std::array<double, 2> values{};
    for (std::size_t i = 0; i < operands.size(); ++i) {
      const CellValue value = asNumber(operands[i].value);
      if (isError(value)) return value;
      values[i] = value.number;
    }
    const std::span<const double> given(values.data(), operands.size());
    return formOf(step.function).isRandom()
               ? randomResult(step.function, formula_.seed, step.index, given)
               : functionResult(step.function, given);
  }

  const Formula& formula_;
  const CellSource& cells_;
  int row_;
  int next_ = 0;
  int count_ = 0;
  std::array<Operand, maxFormulaOperands + 1> stack_;  // the parser counts what it takes
};

}  // namespace

FormulaValue evaluate(const Formula& formula, const CellSource& cells, int row) {
  if (formula.problem) return {formula.problem->error, 0};
  if (formula.steps.empty()) return {FormulaError::syntax, 0};
  const CellValue result = Machine(formula, cells, row).run();
  if (isError(result)) return {result.error, 0};
  return {FormulaError::none, result.number + 0.0};  // -0 becomes 0
}

std::vector<CellRange> references(const Formula& formula, int row) {
  std::vector<CellRange> ranges;
  for (const FormulaArea& area : formula.areas) {
    const CellRange cells = cellsOf(area, row);
    if (formula.size.holds(cells.first) && formula.size.holds(cells.last)) ranges.push_back(cells);
  }
  std::sort(ranges.begin(), ranges.end());
  ranges.erase(std::unique(ranges.begin(), ranges.end()), ranges.end());
  return ranges;
}

}  // namespace tolmer
