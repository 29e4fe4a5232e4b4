// Rows that are put in, taken out and sorted. Headings stay where they are, the sheet keeps its
// size.
#pragma once

#include "editor/sheet_edit.h"
#include "editor/sheet_sort.h"

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

// Sorts rows 1..keys.size() by the keys of their cells. Formulas move as copied ones do; where the
// rows change places, those that depend on the order become their values, if they have one.
void sortRows(SheetEdit& edit, const std::vector<SortKey>& keys, bool ascending,
              const SheetFormulas& results);

}  // namespace tolmer
