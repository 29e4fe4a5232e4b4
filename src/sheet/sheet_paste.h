// Blocks of cells that are put into the sheet at one stroke.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "sheet/sheet_edit.h"
#include "state/matrix.h"

namespace tolmer {

// A table for pasting, its first row 0 and its first column 0. It comes from the sheet or from
// elsewhere: a number may then carry the text it was written with, which labels take ("007").
struct PasteTable {
  Matrix<DataCell> cells;
  // Where it was copied in the sheet. Its formulas move along when pasted, but not those that were
  // cut.
  std::optional<CellAddress> copiedFrom{};
  bool wasCut = false;
  // Names of its columns, which go into the headings wherever the table lands; an empty one leaves
  // the heading that stands.
  std::vector<std::string> headings{};
  // Of data from elsewhere. Labels go with their headings, title and source into a sheet that has
  // no cases yet.
  std::vector<std::string> labels{};
  std::vector<bool> dummies{};  // of its columns: 0 and 1 alone, shown without decimals
  std::string title{};
  std::string source{};

  int rows() const { return cells.lastRow() + 1; }
  int columns() const { return cells.lastColumn() + 1; }
};

struct PasteOutcome {
  bool pasted = false;   // false: nothing has changed
  std::string reason{};  // why not, or why the first cell was refused; a sentence
  int refused = 0;       // cells that keep their old value, because theirs is not for their column
};

// What becomes of a cell that is copied in the sheet to another place, so many rows and columns
// away, where its formula moves along. A number may carry the text it was written with. Refused
// where it is not for that column.
Result<DataCell> copiedCell(SheetEdit& edit, const DataCell& from, CellAddress to, int rows,
                            int columns);

// The target's upper left cell takes the table's. A target that is a whole multiple of the table is
// filled with it. Empty cells of the table empty theirs. Nothing is pasted where a cell that is not
// empty would lie outside the sheet.
PasteOutcome paste(SheetEdit& edit, const CellRange& target, const PasteTable& table);

// A block of cells as the clipboard takes it.
struct CopiedBlock {
  PasteTable table;  // for pasting inside the program
  // For other programs, cells divided by tabs, every row ended by a line feed; a cell with a tab, a
  // line end or a leading quotation mark in quotation marks.
  std::string exactText;  // all digits
  // For a table in a text: as on the screen where that says the whole number, else all digits.
  Matrix<std::string> texts;
  // Where they stand in the sheet.
  std::vector<int> rows, columns;
};

}  // namespace tolmer
