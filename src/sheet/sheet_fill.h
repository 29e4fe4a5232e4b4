// Cells that go on over more rows or columns.
#pragma once

#include <string>

#include "sheet/sheet_edit.h"

namespace tolmer {

struct FillOutcome {
  int refused = 0;       // cells that keep their old value, because theirs is not for their column
  std::string reason{};  // why the first of them was refused; a sentence
};

// Goes on with the cells of one block over the larger one that holds it: down or up where it has
// more rows, else to the right or left. Formulas move along; two or more numbers at equal distances
// go on at that distance; all else is repeated in its order. Labels that are numbers count as such.
FillOutcome fill(SheetEdit& edit, const CellRange& from, const CellRange& to);

}  // namespace tolmer
