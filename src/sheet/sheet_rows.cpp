#include "sheet/sheet_rows.h"

#include <algorithm>
#include <functional>
#include <numeric>

#include "formula/formula_tokens.h"
#include "formula/rewrite.h"
#include "formula/sheet_names.h"
#include "textimport/typed_number.h"

namespace tolmer {
namespace {

bool comesBefore(const SortKey& one, const SortKey& other) {
  if (one.rank != other.rank) return one.rank < other.rank;
  return one.rank == SortKey::Rank::number ? one.number < other.number : one.text < other.text;
}

CellRange rowBlock(const SheetEdit& edit, int first, int last) {
  return {{first, 0}, {last, edit.content().variables()}};
}

void rewriteFormulas(SheetEdit& edit, const std::function<std::string(const std::string&)>& text) {
  for (const CellAddress at : edit.formulas()) edit.respell(at, text(edit.cell(at).text));
}

// Rows first..last of the sheet, so many of which go round from the end to the front.
void rotateDown(SheetEdit& edit, int first, int rows) {
  std::vector<std::uint16_t> from(
      static_cast<std::size_t>(edit.content().observations() - first + 1));
  std::iota(from.begin(), from.end(), std::uint16_t{0});
  std::rotate(from.begin(), from.end() - rows, from.end());
  edit.reorder(first, std::move(from));
}

// Whether a token means something else for a formula of this row once rows 1..lastRow are in
// another order.
bool dependsOnOrder(const FormulaToken& token, int row, int lastRow) {
  using Kind = FormulaToken::Kind;
  if (token.kind == Kind::function)
    return token.function->function == FormulaFunction::LAG ||
           token.function->function == FormulaFunction::ROW;
  if (token.kind != Kind::area || token.first.cell.row == 0) return false;
  const auto [top, bottom] = std::minmax(token.first.cell.row, token.last.cell.row);
  const bool fixed = token.first.fixedRow && token.last.fixedRow;
  if (fixed) return !(token.isRange && top == 1 && bottom >= lastRow);
  return token.first.fixedRow || token.last.fixedRow || top != row || bottom != row;
}

void makeValue(SheetEdit& edit, CellAddress at, const SheetFormulas& results) {
  const CellValue value = results.valueOf(at);
  if (value.kind == CellValue::Kind::number)
    edit.put(at, {.kind = DataCell::Kind::number, .number = value.number});
}

void moveFormulas(SheetEdit& edit, const std::vector<std::uint16_t>& from) {
  for (const CellAddress at : edit.formulas()) {
    if (at.row > std::ssize(from)) continue;
    const int before = from[at.row - 1] + 1;
    edit.respell(at, movedFormula(edit.cell(at).text, edit.names(), at.row - before, 0));
  }
}

}  // namespace

SortKey sortKey(const DataCell& cell, const CellValue& value) {
  using Rank = SortKey::Rank;
  if (value.kind == CellValue::Kind::empty) return {};
  if (value.kind == CellValue::Kind::number) return {.rank = Rank::number, .number = value.number};
  if (value.kind == CellValue::Kind::error)
    return {.rank = Rank::error, .text = std::string(errorText(value.error))};
  const NumberReading reading = readNumber(cell.text);
  if (reading.kind == NumberReading::Kind::number)
    return {.rank = Rank::number, .number = reading.number};
  return {.rank = Rank::text, .text = foldedName(cell.text)};
}

std::vector<std::uint16_t> sortedOrder(const std::vector<SortKey>& keys, bool ascending) {
  std::vector<std::uint16_t> order(keys.size());
  std::iota(order.begin(), order.end(), std::uint16_t{0});
  std::ranges::stable_sort(order, [&](std::uint16_t left, std::uint16_t right) {
    const SortKey& one = keys[left];
    const SortKey& other = keys[right];
    if (one.rank == SortKey::Rank::blank || other.rank == SortKey::Rank::blank)
      return one.rank < other.rank;
    return ascending ? comesBefore(one, other) : comesBefore(other, one);
  });
  return order;
}

int insertRows(SheetEdit& edit, int first, int last) {
  const int count = last - first + 1;
  const int lastRow = edit.content().observations();
  int pushedOut = 0;
  for (int r = lastRow - count + 1; r <= lastRow; ++r)
    pushedOut += isUsed(edit.content(), r) ? 1 : 0;
  const bool moves = lastUsedRow(edit.content()) >= first;
  edit.clear(rowBlock(edit, lastRow - count + 1, lastRow));
  if (moves) rotateDown(edit, first, count);
  rewriteFormulas(edit, [&](const std::string& text) {
    return withRowsInserted(text, edit.names(), first, count);
  });
  return pushedOut;
}

void deleteRows(SheetEdit& edit, int first, int last) {
  const bool headingsToo = first == 0;
  first = std::max(first, 1);
  const int count = last - first + 1;
  const bool moves = lastUsedRow(edit.content()) > last;
  edit.clear(rowBlock(edit, first, last));
  if (moves) rotateDown(edit, first, edit.content().observations() - last);
  rewriteFormulas(edit, [&](const std::string& text) {
    return withRowsDeleted(text, edit.names(), first, count);
  });
  if (headingsToo) edit.clear(rowBlock(edit, 0, 0));
}

std::vector<CellAddress> orderDependentFormulas(const SheetContent& content,
                                                const SheetNames& names, int lastRow) {
  std::vector<CellAddress> found = formulasOf(content);
  std::erase_if(found, [&](CellAddress at) {
    const auto tokens = formulaTokens(content.cells(at.row, at.column).text, 1, names);
    return std::ranges::none_of(
        tokens, [&](const FormulaToken& token) { return dependsOnOrder(token, at.row, lastRow); });
  });
  return found;
}

void sortRows(SheetEdit& edit, const std::vector<SortKey>& keys, bool ascending,
              const SheetFormulas& results) {
  const auto order = sortedOrder(keys, ascending);
  if (std::ranges::is_sorted(order)) return;
  for (const CellAddress at :
       orderDependentFormulas(edit.content(), edit.names(), static_cast<int>(keys.size())))
    makeValue(edit, at, results);
  edit.reorder(1, order);
  moveFormulas(edit, order);
}

}  // namespace tolmer
