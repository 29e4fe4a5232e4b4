// Cells pointed at while a text is typed, and the selection drawn out over more cells.
#include <algorithm>

#include "platform/grid/edit_grid.h"

namespace tolmer {

// --- pointing

bool EditGrid::canPoint() const {
  if (!editing_ || asking_) return false;
  bool can = pointed_.has_value();
  if (!can)
    raise(AskPointing, editText_.substr(0, mark_.first),
          editText_.substr(mark_.first + mark_.length), can);
  return can;
}

std::optional<CellBlock> EditGrid::pointed() const {
  if (!pointed_) return std::nullopt;
  return blockBetween(pointed_->anchor, pointed_->head);
}

bool EditGrid::pointByKey(const KeyPress& key) {
  const auto target = cellBy(key, pointed_ ? pointed_->head : editCell_);
  if (!target || !canPoint()) return false;
  pointTo(*target, key.shift && pointed_);
  return true;
}

void EditGrid::pointTo(CellPosition cell, bool extends) {
  Pointed next = pointed_.value_or(Pointed{mark_.first, mark_.length, cell, cell});
  next.head = cell;
  if (!extends) next.anchor = cell;
  std::string address;
  raise(AskAddress, blockBetween(next.anchor, next.head), address);
  if (address.empty()) return;
  editText_.replace(next.begin, next.length, address);
  next.length = address.size();
  mark_ = {next.begin + next.length, 0};
  pointed_ = next;
  tell(Change::text);
  raise(EditChanged);
}

// --- filling

std::optional<CellBlock> EditGrid::fillSource() const {
  const auto& blocks = selection().blocks();
  if (!fills_ || editing_ || blocks.size() > 1 || !hasCell(activeCell())) return std::nullopt;
  const CellPosition at = activeCell();
  const CellBlock block = blocks.empty() ? CellBlock{at.row, at.col, at.row, at.col} : blocks[0];
  if (block.row < firstDataCell_.row || (block.row2 == maxRows() && block.col2 == maxCols()))
    return std::nullopt;
  return block;
}

void EditGrid::startFill() {
  fillTarget_ = fillSource();
  tell(Change::text);
}

// Over rows or over columns, whichever way the cell is farther off.
void EditGrid::fillTo(CellPosition cell) {
  const auto from = fillSource();
  if (!fillTarget_ || !from) return;
  cell.row = std::clamp(cell.row, firstDataCell_.row, maxRows());
  cell.col = std::clamp(cell.col, 1, maxCols());
  const int down = std::max({cell.row - from->row2, from->row - cell.row, 0});
  const int across = std::max({cell.col - from->col2, from->col - cell.col, 0});
  CellBlock target = *from;
  if (down >= across) {
    target.row = std::min(target.row, cell.row);
    target.row2 = std::max(target.row2, cell.row);
  } else {
    target.col = std::min(target.col, cell.col);
    target.col2 = std::max(target.col2, cell.col);
  }
  if (fillTarget_ == target) return;
  fillTarget_ = target;
  tell(Change::text);
}

void EditGrid::endFill() {
  const auto from = fillSource();
  const auto to = fillTarget_;
  cancelFill();
  if (from && to && *from != *to) raise(Fill, *from, *to);
}

void EditGrid::cancelFill() {
  if (!fillTarget_) return;
  fillTarget_.reset();
  tell(Change::text);
}

void EditGrid::fillBeside() {
  const auto from = fillSource();
  if (!from) return;
  for (const int col : {from->col - 1, from->col2 + 1}) {
    int row = from->row2;
    while (col >= 1 && col <= maxCols() && row < maxRows() && !text(row + 1, col).empty()) ++row;
    if (row > from->row2)
      return raise(Fill, *from, CellBlock{from->row, from->col, row, from->col2});
  }
}

}  // namespace tolmer
