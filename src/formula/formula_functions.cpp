#include "formula/formula_functions.h"

#include <algorithm>
#include <array>

namespace tolmer {
namespace {

using enum FormulaFunction;

constexpr int many = 255;

constexpr unsigned all = FunctionForm::everyArgument;

// In the order of the enumeration; behind it the other names.
constexpr std::array<FunctionForm, 41> forms = {{
    {SUM, "SUM", 1, many, all},
    {AVERAGE, "AVERAGE", 1, many, all},
    {MIN, "MIN", 1, many, all},
    {MAX, "MAX", 1, many, all},
    {COUNT, "COUNT", 1, many, all},
    {STDEV, "STDEV", 1, many, all},
    {VAR, "VAR", 1, many, all},
    {STDEVP, "STDEVP", 1, many, all},
    {VARP, "VARP", 1, many, all},
    {MEDIAN, "MEDIAN", 1, many, all},
    {AND, "AND", 1, many, all},
    {OR, "OR", 1, many, all},
    {COUNTIF, "COUNTIF", 2, 2, 0b01},
    {CORREL, "CORREL", 2, 2, 0b11},
    {RANK, "RANK", 2, 3, 0b10},
    {SQRT, "SQRT", 1, 1},
    {ABS, "ABS", 1, 1},
    {EXP, "EXP", 1, 1},
    {LN, "LN", 1, 1},
    {LOG10, "LOG10", 1, 1},
    {POWER, "POWER", 2, 2},
    {ROUND, "ROUND", 1, 2},
    {INT, "INT", 1, 1},
    {MOD, "MOD", 2, 2},
    {NOT, "NOT", 1, 1},
    {NORMSINV, "NORMSINV", 1, 1},
    {NORMSDIST, "NORMSDIST", 1, 1},
    {IF, "IF", 2, 3},
    {LAG, "LAG", 1, 2},
    {ROW, "ROW", 0, 1},
    {RAND, "RAND", 0, 0},
    {RANDN, "RANDN", 0, 0},
    {NORMAL, "NORMAL", 2, 2},
    {STDEV, "STDEV.S", 1, many, all},
    {VAR, "VAR.S", 1, many, all},
    {STDEVP, "STDEV.P", 1, many, all},
    {VARP, "VAR.P", 1, many, all},
    {CORREL, "PEARSON", 2, 2, 0b11},
    {RANK, "RANK.EQ", 2, 3, 0b10},
    {NORMSINV, "NORM.S.INV", 1, 1},
    {NORMSDIST, "NORM.S.DIST", 1, 2},
}};

char large(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

}  // namespace

const FunctionForm* findFunction(std::string_view name) {
  const auto isCalledSo = [&](const FunctionForm& form) {
    return std::equal(name.begin(), name.end(), form.name.begin(), form.name.end(),
                      [](char a, char b) { return large(a) == b; });
  };
  const auto place = std::find_if(forms.begin(), forms.end(), isCalledSo);
  return place == forms.end() ? nullptr : &*place;
}

const FunctionForm& formOf(FormulaFunction function) {
  return forms[static_cast<std::size_t>(function)];
}

}  // namespace tolmer
