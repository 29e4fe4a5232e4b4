// A formula: read once, evaluated often.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"
#include "formula/formula_functions.h"
#include "formula/formula_value.h"
#include "formula/sheet_names.h"

namespace tolmer {

// The language
//
//   Values      1.5  .5  2e-3  5%; the decimal mark is a point in every country
//   Texts       "north", a quotation mark inside written twice; to be compared and counted
//   Cells       B1 is the first observation of variable 1, column A holds the labels; "$" before
//               letters or digits keeps that part when the formula is copied
//   Ranges      B1:B20, B1:D20, and whole columns as B:B or B:D
//   Names       Var1 or [Var1] is the whole column of that heading, in any case of letters; "]"
//               inside is written twice
//   Operators   comparison, then + -, then * /, then ^, then signs, then %: so -2^2 is 4 and 2^3^2
//               is 64, as in the usual spreadsheets; equal operators go from left to right.
//               Comparisons (= <> < <= > >=) give 1 or 0, take numbers as equal that agree to about
//               15 digits, and cannot be chained; those of texts are in comparison.h
//   Functions   see formula_functions.h; arguments are parted by comma or semicolon
//
// Where one value is needed, a whole column means its cell in the formula's own row; functions that
// take many values take the whole column, unless "@" stands before it: AVERAGE(@Q1,@Q2).
//
// An empty cell is 0 in arithmetic and nothing in functions that take many values; these skip text,
// too, elsewhere text is #VALUE!. Letters of addresses, names and functions may be of any case. A
// word that is both a name and an address is refused: [X1] is the variable, X1:X1 the cell. Where
// a typed X1 cannot well be the cell, it is kept as [X1].
//
// What students type is limited, so that no formula can be too much for a dialog or for a file.
inline constexpr std::size_t maxTypedFormula = 1000;  // bytes
inline constexpr int maxFormulaNesting = 64;          // brackets and signs inside each other
inline constexpr int maxFormulaOperands = 255;        // waiting for their operator at one time

// One step of the calculation, which runs on a stack.
struct FormulaStep {
  enum class Kind : std::uint8_t {
    number,  // push
    text,    // push texts[index]
    row,     // push `number`, plus the formula's own row where index is 1
    error,   // push
    cell,    // push the value of areas[index], a single cell
    area,    // push areas[index] itself, for a function that takes many values
    negate,
    percent,
    binary,  // one of + - * / ^ = < > and, for <= >= <>, l g n
    call,    // function, with `count` operands
    branch,  // pop a condition: on 0 to `index`, on an error, which stays, to `count`
    jump,    // to `index`
  };
  Kind kind;
  char symbol = 0;
  FormulaFunction function = FormulaFunction::SUM;
  FormulaError error = FormulaError::none;
  int index = 0;  // of an area or a text; a step; the number of a random call
  int count = 0;
  double number = 0;
};

// Cells that a formula refers to. A row of the formula's own is kept as the distance to it.
struct FormulaArea {
  CellRange cells{};
  bool ownRow = false;        // rows count from the formula's row
  bool wholeColumns = false;  // written as a name or as B:B
  std::size_t place = 0;      // in the text
};

struct FormulaProblem {
  FormulaError error;  // what the cell shows
  std::size_t place;   // byte in the text, from 0
  std::string text;
};

struct Formula {
  std::string text;        // as it is kept, with "="
  std::uint64_t seed = 0;  // of the random functions
  SheetSize size;
  std::optional<FormulaProblem> problem;  // then there are no steps
  std::vector<FormulaStep> steps;
  std::vector<FormulaArea> areas;
  std::vector<std::string> texts;
  int randomCalls = 0;  // the seed matters where this is above 0
};

// Whether nobody can well mean that cell, because its column is unused: a word that is its address
// and a variable's name is the variable then.
using MeansNoCell = std::function<bool(CellAddress cell)>;

// Reads what a user has typed: behind "=", or behind a sign as in +B1*2, which is kept as =+B1*2.
// The error says at which of the typed characters, counted from 1, and why.
Result<Formula> parseFormula(std::string_view typed, const SheetNames& names, std::uint64_t seed,
                             const MeansNoCell& meansNoCell = {});

// Reads what a sheet has stored: always a formula, with its problem where it has one, and without a
// limit of length, because inserted rows and longer names make a text grow.
Formula compileFormula(std::string_view text, const SheetNames& names, std::uint64_t seed);

// The value in a row of the sheet. Random functions depend on the seed and on their place among the
// random calls of the formula alone, so they stay as they are in sorted rows; a copy needs a seed
// of its own. Never throws; the number is finite.
FormulaValue evaluate(const Formula& formula, const CellSource& cells, int row);

// All cells that the value in that row may depend on, a branch not taken included; cut to the
// sheet. Each range once.
std::vector<CellRange> references(const Formula& formula, int row);

}  // namespace tolmer
