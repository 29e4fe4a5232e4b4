// What a displayed table is made of, for those who set it anew in letters or markup.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "tables/table_content.h"

namespace tolmer {

using TableRow = std::vector<TableCell>;

struct TableParts {
  TableRow heads;  // of the columns
  // The rows below, divided where the display has one of its frame alone. The heads speak of the
  // first part; in the others each figure stands behind its own name.
  std::vector<std::vector<TableRow>> bodies;
  TableRow key;  // tells what marks mean
  std::vector<std::string> notes;
  std::size_t leadColumns = 1;  // at the left, name their rows

  // The sign of the cell's mark where the key has a word for it, else nothing.
  std::string_view shownSign(const TableCell& cell) const;
};

// Heads and first rows are set alike: what the display centres stands right where the column holds
// figures, so that their points are in line, and left where it holds words.
TableParts partsOf(const TableContent& table);

// "white", "face" for the look of headings, or "#RRGGBB".
std::string_view backName(const TableCell& cell);

// Columns that stand side by side, counted from 0.
using ColumnBlock = std::vector<std::size_t>;

// Cuts a table into as few blocks of columns as the room allows, of like widths, each with the lead
// columns at its left. `widths` are in the unit of the room; a block has at least one further
// column, even where that is too wide.
std::vector<ColumnBlock> columnBlocks(const std::vector<double>& widths, std::size_t leadColumns,
                                      double room);

}  // namespace tolmer
