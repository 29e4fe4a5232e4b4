// Texts looked for in the cells of a sheet, and replaced.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "sheet/sheet_edit.h"

namespace tolmer {

struct FindWords {
  std::string text;
  bool matchCase = false;
  bool wholeCell = false;  // the cell reads this and nothing else
};

// In what a cell reads while it is edited: headings, labels, all digits of a number, the text of a
// formula. A number is also found by another spelling of it, as a whole: "1.500" for 1.5.
bool isFound(const FindWords& words, const DataCell& cell);

// All cells in which it is found, row by row from the headings on.
std::vector<CellAddress> foundCells(const FindWords& words, const SheetContent& content);

struct ReplaceOutcome {
  int cells = 0;         // in which something was replaced
  int refused = 0;       // that keep their old content, because the new one is not for them
  std::string reason{};  // why the first of them was refused; a sentence
  CellAddress refusedAt{};
};

// Puts another text for each place in these cells, as if it had been typed there.
ReplaceOutcome replace(SheetEdit& edit, const FindWords& words, const std::string& by,
                       std::span<const CellAddress> cells);

}  // namespace tolmer
