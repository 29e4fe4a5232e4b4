// The functions that formulas know.
#pragma once

#include <cstdint>
#include <string_view>

namespace tolmer {

enum class FormulaFunction : std::uint8_t {
  // Of many values; cells that are empty or hold text do not count.
  SUM,
  AVERAGE,
  MIN,
  MAX,
  COUNT,
  STDEV,
  VAR,
  STDEVP,
  VARP,
  MEDIAN,
  AND,
  OR,
  // COUNTIF(cells, criterion), CORREL(cells, cells), RANK(number, cells[, order]): aggregates.h.
  COUNTIF,
  CORREL,
  RANK,
  // Of single values.
  SQRT,
  ABS,
  EXP,
  LN,
  LOG10,
  POWER,
  ROUND,
  INT,
  MOD,
  NOT,
  // The standard normal distribution: its quantile; its probability, or with a second argument of 0
  // its density.
  NORMSINV,
  NORMSDIST,
  // IF(condition, value, value otherwise) calculates one of its values; without the last it is 0.
  IF,
  // LAG(cell[, rows]) is the cell so many rows above, one without the second; a negative number
  // goes down.
  LAG,
  // ROW() is the number of the formula's own observation, ROW(cell) that of the cell.
  ROW,
  // Uniform in [0, 1); standard normal; normal of a mean and a standard deviation.
  RAND,
  RANDN,
  NORMAL,
};

struct FunctionForm {
  static constexpr unsigned everyArgument = ~0U;

  FormulaFunction function;
  std::string_view name;
  int fewest, most;     // arguments
  unsigned ranges = 0;  // bit i: argument i may be many cells; or everyArgument

  bool takesMany() const { return ranges != 0; }
  bool takesMany(int argument) const {
    return ranges == everyArgument || (argument < 32 && (ranges >> argument & 1U) != 0);
  }
  bool isRandom() const { return function >= FormulaFunction::RAND; }
};

// In any case of letters, also by the other names that spreadsheets have for it (STDEV.S);
// nullptr where there is none.
const FunctionForm* findFunction(std::string_view name);
const FunctionForm& formOf(FormulaFunction function);

}  // namespace tolmer
