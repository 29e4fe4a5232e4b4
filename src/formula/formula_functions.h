// The functions that formulas know.
#pragma once

#include <cstdint>
#include <optional>
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
  MEDIAN,
  AND,
  OR,
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
  // IF(condition, value, value otherwise) calculates one of its values; without the last it is 0.
  IF,
  // LAG(cell[, rows]) is the cell so many rows above, one without the second; a negative number
  // goes down.
  LAG,
  // Uniform in [0, 1); standard normal; normal of a mean and a standard deviation.
  RAND,
  RANDN,
  NORMAL,
};

struct FunctionForm {
  FormulaFunction function;
  std::string_view name;
  int fewest, most;  // arguments

  bool takesMany() const { return function <= FormulaFunction::OR; }
  bool isRandom() const { return function >= FormulaFunction::RAND; }
};

// In any case of letters; nullptr where there is none.
const FunctionForm* findFunction(std::string_view name);
const FunctionForm& formOf(FormulaFunction function);

}  // namespace tolmer
