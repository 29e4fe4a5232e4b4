#include "formula/aggregates.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <vector>

#include "formula/comparison.h"
#include "formula/scalar_functions.h"

namespace tolmer {
namespace {

using enum FormulaFunction;
using Kind = CellValue::Kind;

constexpr double infinity = std::numeric_limits<double>::infinity();

// By columns, as data are read; ends where take returns false.
template <class Take>
void forEachCell(const CellSource& cells, const CellRange& range, Take take) {
  for (int column = range.first.column; column <= range.last.column; ++column)
    for (int row = range.first.row; row <= range.last.row; ++row)
      if (!take(cells.cellValue({row, column}))) return;
}

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
      forEachCell(cells_, operand.range, [&](const CellValue& cell) {
        count += cell.kind == Kind::number;
        return true;
      });
    }
    return count;
  }

 private:
  template <class Take>
  FormulaError ofRange(const CellRange& range, Take& take) const {
    FormulaError error = FormulaError::none;
    forEachCell(cells_, range, [&](const CellValue& cell) {
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
double squaredDeviations(const Numbers& numbers, const Summary& summary) {
  double squares = 0, rest = 0;
  numbers.forEach([&](double number) {
    const double deviation = number - summary.mean();
    squares += deviation * deviation;
    rest += deviation;
  });
  return std::max(0.0, squares - rest * rest / summary.count);
}

CellValue spread(FormulaFunction function, const Numbers& numbers, const Summary& summary) {
  const int divisor = summary.count - (function == STDEV || function == VAR ? 1 : 0);
  if (divisor < 1) return CellValue::ofError(FormulaError::divisionByZero);
  // max() above would hide what is not a number.
  if (!std::isfinite(summary.sum)) return CellValue::ofError(FormulaError::number);
  const double value = squaredDeviations(numbers, summary) / divisor;
  return checkedNumber(function == STDEV || function == STDEVP ? std::sqrt(value) : value);
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

CellValue valueError() { return CellValue::ofError(FormulaError::value); }

CellValue countIf(const Operand& where, const CellValue& wanted, const CellSource& cells) {
  const Criterion criterion(wanted);
  if (criterion.error() != FormulaError::none) return CellValue::ofError(criterion.error());
  int count = 0;
  forEachCell(cells, where.range, [&](const CellValue& cell) {
    count += criterion.isMetBy(cell);
    return true;
  });
  return CellValue::ofNumber(count);
}

// One plus the numbers that come before.
CellValue rank(std::span<const Operand> operands, const CellSource& cells) {
  const CellValue& ranked = operands[0].value;
  if (ranked.kind == Kind::text || (operands.size() > 2 && operands[2].value.kind == Kind::text))
    return valueError();
  const bool rising = operands.size() > 2 && operands[2].value.number != 0;
  int before = 0;
  bool isThere = false;
  const FormulaError error = Numbers(operands.subspan(1, 1), cells).forEach([&](double number) {
    if (areNearlyEqual(number, ranked.number))
      isThere = true;
    else
      before += rising == (number < ranked.number);
  });
  if (error != FormulaError::none) return CellValue::ofError(error);
  return isThere ? CellValue::ofNumber(before + 1) : valueError();
}

using Pairs = std::array<std::vector<double>, 2>;

// Both ranges have one shape.
FormulaError pairsOf(const CellRange& one, const CellRange& other, const CellSource& cells,
                     Pairs& pairs) {
  FormulaError error = FormulaError::none;
  CellAddress apart{other.first.row - one.first.row, other.first.column - one.first.column};
  for (int column = one.first.column; column <= one.last.column; ++column)
    for (int row = one.first.row; row <= one.last.row; ++row) {
      const CellValue left = cells.cellValue({row, column});
      const CellValue right = cells.cellValue({row + apart.row, column + apart.column});
      for (const CellValue& value : {left, right})
        if (value.kind == Kind::error && error == FormulaError::none) error = value.error;
      if (left.kind != Kind::number || right.kind != Kind::number) continue;
      pairs[0].push_back(left.number);
      pairs[1].push_back(right.number);
    }
  return error;
}

// The distances from the mean, divided by the largest, so that no square is too large or too small.
// False where there are none.
bool standardize(std::vector<double>& numbers) {
  double mean = 0, largest = 0;
  for (const double number : numbers) mean += number / static_cast<double>(numbers.size());
  for (double& number : numbers) largest = std::max(largest, std::fabs(number -= mean));
  // What rounding of the mean leaves of equal numbers is no spread.
  if (!(largest > std::fabs(mean) * 0x1p-50)) return false;
  for (double& number : numbers) number /= largest;
  return true;
}

CellValue correlation(std::span<const Operand> operands, const CellSource& cells) {
  const CellRange& one = operands[0].range;
  const CellRange& other = operands[1].range;
  if (one.last.row - one.first.row != other.last.row - other.first.row ||
      one.last.column - one.first.column != other.last.column - other.first.column)
    return valueError();
  Pairs pairs;
  const FormulaError error = pairsOf(one, other, cells, pairs);
  if (error != FormulaError::none) return CellValue::ofError(error);
  if (!standardize(pairs[0]) || !standardize(pairs[1]))
    return CellValue::ofError(FormulaError::divisionByZero);
  double products = 0;
  std::array<double, 2> squares{};
  std::array<double, 2> rests{};
  const auto count = static_cast<double>(pairs[0].size());
  for (std::size_t i = 0; i < pairs[0].size(); ++i) {
    products += pairs[0][i] * pairs[1][i];
    for (std::size_t side = 0; side < 2; ++side) {
      squares[side] += pairs[side][i] * pairs[side][i];
      rests[side] += pairs[side][i];
    }
  }
  for (std::size_t side = 0; side < 2; ++side) squares[side] -= rests[side] * rests[side] / count;
  products -= rests[0] * rests[1] / count;
  return checkedNumber(std::clamp(products / std::sqrt(squares[0] * squares[1]), -1.0, 1.0));
}

// Functions of which some arguments are ranges and others values.
CellValue rangeResult(FormulaFunction function, std::span<const Operand> operands,
                      const CellSource& cells) {
  for (std::size_t i = 0; i < operands.size(); ++i) {
    const Operand& operand = operands[i];
    if (!operand.isRange && operand.value.kind == Kind::error) return operand.value;
    if (!operand.isRange && formOf(function).takesMany(static_cast<int>(i))) return valueError();
  }
  if (function == COUNTIF) return countIf(operands[0], operands[1].value, cells);
  return function == RANK ? rank(operands, cells) : correlation(operands, cells);
}

CellValue truth(const Summary& summary, bool holds) {
  if (summary.count == 0) return CellValue::ofError(FormulaError::value);
  return CellValue::ofNumber(holds ? 1 : 0);
}

}  // namespace

CellValue aggregateResult(FormulaFunction function, std::span<const Operand> operands,
                          const CellSource& cells) {
  if (function == COUNTIF || function == RANK || function == CORREL)
    return rangeResult(function, operands, cells);
  const Numbers numbers(operands, cells);
  if (function == COUNT) return CellValue::ofNumber(numbers.countWithoutErrors());
  if (function == MEDIAN) return median(numbers);
  const Summary summary = summaryOf(numbers);
  if (summary.error != FormulaError::none) return CellValue::ofError(summary.error);
  if (function == SUM) return checkedNumber(summary.sum);
  if (function == AVERAGE) return average(summary);
  if (function == MIN) return CellValue::ofNumber(summary.count == 0 ? 0 : summary.smallest);
  if (function == MAX) return CellValue::ofNumber(summary.count == 0 ? 0 : summary.largest);
  if (function == AND) return truth(summary, summary.nonzero == summary.count);
  if (function == OR) return truth(summary, summary.nonzero > 0);
  return spread(function, numbers, summary);
}

}  // namespace tolmer
