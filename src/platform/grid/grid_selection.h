// What is selected in a grid: the active cell and the marked blocks.
#pragma once

#include <vector>

#include "platform/grid/sheet.h"

namespace tolmer {

enum class SelectionMode {
  none,   // a table to look at: no marks, the keys scroll
  cells,  // blocks of cells, as in a spreadsheet
  rows    // whole rows, as in a list
};

// A plain move leaves no block behind: the selection is then the active cell alone. The last block
// is the one that grows; it lies between the active cell (its anchor) and the head. Positions are
// taken as they come, the owner keeps them inside its sheet.
class GridSelection {
 public:
  // In row mode blocks reach over all columns.
  void setShape(SelectionMode mode, int rows, int cols);

  CellPosition active() const { return anchor_; }
  // The end that moves: the cell last reached.
  CellPosition head() const { return head_; }
  // In the order of marking; they can overlap.
  const std::vector<CellBlock>& blocks() const { return blocks_; }
  // Does it lie in a block, or is it (in row mode: its row) the selection where there is none?
  bool covers(CellPosition cell) const;

  void moveTo(CellPosition cell);
  void extendTo(CellPosition cell);
  // Adds the cell or row to what is selected, or takes it out where it is in a block.
  void toggle(CellPosition cell);
  // This block alone, its first cell active.
  void take(const CellBlock& block);
  // This block, too, its first cell active.
  void add(const CellBlock& block);
  // This block in place of the last one, beside the others.
  void replaceLast(const CellBlock& block);
  // The marks go, the active cell stays.
  void clear() { blocks_.clear(); }

  friend bool operator==(const GridSelection&, const GridSelection&) = default;

 private:
  CellBlock shaped(const CellBlock& block) const;
  bool isMarked(CellPosition cell) const;
  void unmark(CellPosition cell);

  SelectionMode mode_ = SelectionMode::none;
  int cols_ = 0;
  CellPosition anchor_{1, 1};
  CellPosition head_{1, 1};
  std::vector<CellBlock> blocks_;
};

}  // namespace tolmer
