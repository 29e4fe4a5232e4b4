#include "editor/formula_pointing.h"

#include <algorithm>
#include <string_view>

#include "formula/formula_tokens.h"

namespace tolmer {
namespace {

using Kind = FormulaToken::Kind;

std::string cellName(CellAddress cell) {
  return columnLetters(cell.column) + std::to_string(cell.row);
}

std::string columnName(int column, const SheetNames& names) {
  const std::string& name = names.headings()[column];
  if (names.lookUp(name).found != SheetNames::Found::one) {
    const std::string letters = columnLetters(column);
    return letters + ':' + letters;
  }
  return clearName(name, names);
}

}  // namespace

bool takesAddress(const std::string& before, const std::string& behind, const SheetNames& names) {
  if (!before.starts_with('=')) return false;
  const auto next = behind.find_first_not_of(" \t");
  constexpr std::string_view mayFollow = "+-*/^%=<>),;";
  if (next != std::string::npos && mayFollow.find(behind[next]) == std::string_view::npos)
    return false;
  const auto tokens = formulaTokens(before, 1, names);
  if (tokens.size() == 1) return true;
  const FormulaToken& last = *(tokens.end() - 2);
  return last.kind == Kind::symbol && last.symbol != ')' && last.symbol != '%';
}

std::string addressOf(const CellRange& cells, const SheetNames& names) {
  const auto [first, last] = cells;
  if (last.row == 0 && first.column == last.column) return columnName(first.column, names);
  if (last.row == 0) return columnLetters(first.column) + ':' + columnLetters(last.column);
  const std::string begin = cellName({std::max(first.row, 1), first.column}), end = cellName(last);
  const bool isName = names.lookUp(begin).found != SheetNames::Found::none;
  return begin == end && !isName ? begin : begin + ':' + end;
}

}  // namespace tolmer
