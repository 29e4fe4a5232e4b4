#include "formula/aggregates.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "formula/scalar_functions.h"

namespace tolmer {
namespace {

using enum FormulaFunction;
using Kind = CellValue::Kind;

constexpr double infinity = std::numeric_limits<double>::infinity();

class Numbers {
 public:
  Numbers(std::span<const Operand> operands, const CellSource& cells)
      : operands_(operands), cells_(cells) {}

  // Calls take(number) for each, in order, and ends at the first error, which it returns.
  template <class Take>
  FormulaError forEach(Take take) const {
    for (const Operand& operand : operands_) {
      const FormulaError error =
          operand.isRange ? ofRange(operand.range, take) : ofValue(operand.value, take);
      if (error != FormulaError::none) return error;
    }
    return FormulaError::none;
  }

  int countWithoutErrors() const {
    int count = 0;
    for (const Operand& operand : operands_) {
      if (!operand.isRange) {
        count += operand.value.kind == Kind::number || operand.value.kind == Kind::empty;
        continue;
      }
      forEachCell(operand.range, [&](const CellValue& cell) {
        count += cell.kind == Kind::number;
        return true;
      });
    }
    return count;
  }

 private:
  // By columns, as data are read; ends where take returns false.
  template <class Take>
  void forEachCell(const CellRange& range, Take take) const {
    for (int column = range.first.column; column <= range.last.column; ++column)
      for (int row = range.first.row; row <= range.last.row; ++row)
        if (!take(cells_.cellValue({row, column}))) return;
  }

  template <class Take>
  FormulaError ofRange(const CellRange& range, Take& take) const {
    FormulaError error = FormulaError::none;
    forEachCell(range, [&](const CellValue& cell) {
      if (cell.kind == Kind::error) error = cell.error;
      if (cell.kind == Kind::number && !std::isfinite(cell.number)) error = FormulaError::number;
      if (cell.kind == Kind::number && error == FormulaError::none) take(cell.number);
      return error == FormulaError::none;
    });
    return error;
  }

  template <class Take>
  static FormulaError ofValue(const CellValue& value, Take& take) {
    if (value.kind == Kind::error) return value.error;
    if (value.kind == Kind::text) return FormulaError::value;
    take(value.kind == Kind::number ? value.number : 0);
    return FormulaError::none;
  }

  std::span<const Operand> operands_;
  const CellSource& cells_;
};

// What one pass over the numbers yields.
struct Summary {
  FormulaError error = FormulaError::none;
  int count = 0;
  int nonzero = 0;
  double sum = 0;
  double smallest = infinity;
  double largest = -infinity;

  double mean() const { return sum / count; }
};

Summary summaryOf(const Numbers& numbers) {
  Summary summary;
  double lost = 0;
  summary.error = numbers.forEach([&](double number) {
    ++summary.count;
    summary.nonzero += number != 0;
    const double sum = summary.sum + number;
    lost += std::fabs(summary.sum) >= std::fabs(number) ? (summary.sum - sum) + number
                                                        : (number - sum) + summary.sum;
    summary.sum = sum;
    summary.smallest = std::min(summary.smallest, number);
    summary.largest = std::max(summary.largest, number);
  });
  summary.sum += lost;  // not finite where the sum is not
  return summary;
}

// The deviations' own sum takes the rounding of the mean away (Chan, Golub and LeVeque 1983, The
// American Statistician 37, 242-247: the corrected two-pass algorithm).
double variance(const Numbers& numbers, const Summary& summary) {
  double squares = 0, rest = 0;
  numbers.forEach([&](double number) {
    const double deviation = number - summary.mean();
    squares += deviation * deviation;
    rest += deviation;
  });
  return std::max(0.0, (squares - rest * rest / summary.count) / (summary.count - 1));
}

CellValue spread(FormulaFunction function, const Numbers& numbers, const Summary& summary) {
  if (summary.count < 2) return CellValue::ofError(FormulaError::divisionByZero);
  // max() above would hide what is not a number.
  if (!std::isfinite(summary.sum)) return CellValue::ofError(FormulaError::number);
  const double value = variance(numbers, summary);
  return checkedNumber(function == STDEV ? std::sqrt(value) : value);
}

CellValue median(const Numbers& numbers) {
  std::vector<double> all;
  const FormulaError error = numbers.forEach([&](double number) { all.push_back(number); });
  if (error != FormulaError::none) return CellValue::ofError(error);
  if (all.empty()) return CellValue::ofError(FormulaError::number);
  const auto middle = all.begin() + static_cast<std::ptrdiff_t>(all.size() / 2);
  std::nth_element(all.begin(), middle, all.end());
  if (all.size() % 2 == 1) return CellValue::ofNumber(*middle);
  const double below = *std::max_element(all.begin(), middle);
  return CellValue::ofNumber(below / 2 + *middle / 2);
}

CellValue average(const Summary& summary) {
  if (summary.count == 0) return CellValue::ofError(FormulaError::divisionByZero);
  return checkedNumber(summary.mean());
}

CellValue truth(const Summary& summary, bool holds) {
  if (summary.count == 0) return CellValue::ofError(FormulaError::value);
  return CellValue::ofNumber(holds ? 1 : 0);
}

}  // namespace

CellValue aggregateResult(FormulaFunction function, std::span<const Operand> operands,
                          const CellSource& cells) {
  const Numbers numbers(operands, cells);
  if (function == COUNT) return CellValue::ofNumber(numbers.countWithoutErrors());
  if (function == MEDIAN) return median(numbers);
  const Summary summary = summaryOf(numbers);
  if (summary.error != FormulaError::none) return CellValue::ofError(summary.error);
  switch (function) {
    case SUM:
      return checkedNumber(summary.sum);
    case AVERAGE:
      return average(summary);
    case MIN:
      return CellValue::ofNumber(summary.count == 0 ? 0 : summary.smallest);
    case MAX:
      return CellValue::ofNumber(summary.count == 0 ? 0 : summary.largest);
    case AND:
      return truth(summary, summary.nonzero == summary.count);
    case OR:
      return truth(summary, summary.nonzero > 0);
    default:
      return spread(function, numbers, summary);
  }
}

}  // namespace tolmer
