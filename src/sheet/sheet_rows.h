// Rows that are put in, taken out and sorted. Headings stay where they are, the sheet keeps its
// size.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "formula/formula_value.h"
#include "sheet/sheet_edit.h"

namespace tolmer {

// Empty rows first..last, both counted from 1; what stood there and below moves down, references
// in formulas with it. The number of used rows that were pushed out at the end.
int insertRows(SheetEdit& edit, int first, int last);

// Takes rows first..last out and has empty ones follow at the end. References to them are #REF!.
// With first 0 the headings lose their text, too.
void deleteRows(SheetEdit& edit, int first, int last);

// The formulas whose result depends on the order of rows 1..lastRow: those that refer to a row
// other than their own, by "$" to their own, or by LAG. Whole columns and fixed ranges over all
// rows do not count.
std::vector<CellAddress> orderDependentFormulas(const SheetContent& content,
                                                const SheetNames& names, int lastRow);

// What a cell counts as: numbers come before texts, texts before errors of formulas, empty cells
// last whatever the direction. A label that reads as a number counts as one, so that "10" follows
// "9". Texts compare by their small letters, character by character, the same in every country.
struct SortKey {
  enum class Rank : std::uint8_t { number, text, error, blank };
  Rank rank = Rank::blank;
  double number = 0;
  std::string text{};
};

SortKey sortKey(const DataCell& cell, const CellValue& value);

// Element i is the index of the key that comes to place i; equal keys keep their order.
std::vector<std::uint16_t> sortedOrder(const std::vector<SortKey>& keys, bool ascending);

// Sorts rows 1..keys.size() by the keys of their cells. Formulas move as copied ones do; where the
// rows change places, those that depend on the order become their values, if they have one.
void sortRows(SheetEdit& edit, const std::vector<SortKey>& keys, bool ascending,
              const SheetFormulas& results);

}  // namespace tolmer
