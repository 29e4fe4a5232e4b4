#include "formula/formula_functions.h"

#include <algorithm>
#include <array>

namespace tolmer {
namespace {

using enum FormulaFunction;

constexpr int many = 255;

// In the order of the enumeration.
constexpr std::array<FunctionForm, 25> forms = {{
    {SUM, "SUM", 1, many},     {AVERAGE, "AVERAGE", 1, many},
    {MIN, "MIN", 1, many},     {MAX, "MAX", 1, many},
    {COUNT, "COUNT", 1, many}, {STDEV, "STDEV", 1, many},
    {VAR, "VAR", 1, many},     {MEDIAN, "MEDIAN", 1, many},
    {AND, "AND", 1, many},     {OR, "OR", 1, many},
    {SQRT, "SQRT", 1, 1},      {ABS, "ABS", 1, 1},
    {EXP, "EXP", 1, 1},        {LN, "LN", 1, 1},
    {LOG10, "LOG10", 1, 1},    {POWER, "POWER", 2, 2},
    {ROUND, "ROUND", 1, 2},    {INT, "INT", 1, 1},
    {MOD, "MOD", 2, 2},        {NOT, "NOT", 1, 1},
    {IF, "IF", 2, 3},          {LAG, "LAG", 1, 2},
    {RAND, "RAND", 0, 0},      {RANDN, "RANDN", 0, 0},
    {NORMAL, "NORMAL", 2, 2},
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
