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

// What becomes of a formula that points to other rows, whose result a new order would change.
enum class SortedFormulas { moved, madeValues };

struct SortOutcome {
  int rows = 0;        // the sorted block, from row 1 to the last used one
  int otherRows = 0;   // formulas that point to other rows
  int madeValues = 0;  // of these; those without a value move
};

// The formulas whose result depends on the order of rows 1..lastRow: those that refer to a row
// other than their own, by "$" to their own, or by LAG. Whole columns and fixed ranges over all
// rows do not count.
std::vector<CellAddress> orderDependentFormulas(const SheetContent& content,
                                                const SheetNames& names, int lastRow);

// Sorts rows 1..keys.size() by the keys of their cells. Formulas move as copied ones do.
SortOutcome sortRows(SheetEdit& edit, const std::vector<SortKey>& keys, bool ascending,
                     SortedFormulas formulas, const SheetFormulas& results);

}  // namespace tolmer
