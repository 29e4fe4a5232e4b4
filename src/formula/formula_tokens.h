// A formula's text in pieces. Reading and rewriting share it, so that both see the same references.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "formula/formula_functions.h"
#include "formula/formula_value.h"
#include "formula/sheet_names.h"

namespace tolmer {

// One end of a range as written; whole columns have row 0.
struct WrittenAddress {
  CellAddress cell{};
  bool fixedRow = false;
  bool fixedColumn = false;
  std::string_view text;

  // Letters and digits alone, without "$".
  std::string_view letters() const;
  std::string_view digits() const;
};

struct FormulaToken {
  enum class Kind : std::uint8_t { end, number, text, symbol, area, name, function, error, bad };
  Kind kind = Kind::end;
  std::size_t begin = 0, end = 0;           // bytes of the text
  char symbol = 0;                          // + - * / ^ % ( ) , @ = < > and l g n for <= >= <>
  FormulaError error = FormulaError::none;  // of error and bad
  double number = 0;
  const FunctionForm* function = nullptr;
  int column = 0;                  // of a name
  WrittenAddress first{}, last{};  // of an area; alike for a single cell
  bool isRange = false;            // written with a colon
  bool isNameAndCell = false;      // bad, because the word is both; `first` is the cell
  std::string text{};              // of a text, without its quotes
  std::string problem{};           // of bad
};

// From the byte `start` to an end token, which is the last. The views of the tokens are into the
// text. What cannot be read becomes a bad token, and the rest is read all the same.
std::vector<FormulaToken> formulaTokens(std::string_view text, std::size_t start,
                                        const SheetNames& names);

// "[name]", its own brackets doubled where needed.
std::string bracketedName(std::string_view name);

// The name as a bare word where that reads as the name and nothing else, in brackets otherwise.
std::string clearName(const std::string& name, const SheetNames& names);

}  // namespace tolmer
