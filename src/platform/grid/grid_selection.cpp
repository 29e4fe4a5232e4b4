#include "platform/grid/grid_selection.h"

#include <algorithm>
#include <utility>

namespace tolmer {
namespace {

CellPosition inside(CellPosition cell, int rows, int cols) {
  return {std::clamp(cell.row, 1, std::max(rows, 1)), std::clamp(cell.col, 1, std::max(cols, 1))};
}

// What is left of the block without the hole: the rows above and below, and between them what
// stands to the left and right.
void appendRest(std::vector<CellBlock>& rest, const CellBlock& block, const CellBlock& hole) {
  const CellBlock pieces[] = {
      {block.row, block.col, hole.row - 1, block.col2},
      {hole.row2 + 1, block.col, block.row2, block.col2},
      {hole.row, block.col, hole.row2, hole.col - 1},
      {hole.row, hole.col2 + 1, hole.row2, block.col2},
  };
  for (const CellBlock& piece : pieces)
    if (piece.row <= piece.row2 && piece.col <= piece.col2) rest.push_back(piece);
}

}  // namespace

void GridSelection::setShape(SelectionMode mode, int rows, int cols) {
  mode_ = mode;
  cols_ = cols;
  anchor_ = inside(anchor_, rows, cols);
  head_ = inside(head_, rows, cols);
  std::erase_if(blocks_, [&](const CellBlock& block) {
    return mode == SelectionMode::none || block.row > rows || block.col > cols;
  });
  for (CellBlock& block : blocks_) {
    block.row2 = std::min(block.row2, rows);
    block.col2 = std::min(block.col2, cols);
    block = shaped(block);
  }
}

CellBlock GridSelection::shaped(const CellBlock& block) const {
  if (mode_ != SelectionMode::rows) return block;
  return {block.row, 1, block.row2, cols_};
}

bool GridSelection::isMarked(CellPosition cell) const {
  return std::any_of(blocks_.begin(), blocks_.end(),
                     [cell](const CellBlock& block) { return block.contains(cell); });
}

bool GridSelection::covers(CellPosition cell) const {
  if (mode_ == SelectionMode::none) return false;
  return blocks_.empty() ? shaped(blockBetween(anchor_, anchor_)).contains(cell) : isMarked(cell);
}

void GridSelection::moveTo(CellPosition cell) {
  blocks_.clear();
  anchor_ = head_ = cell;
}

void GridSelection::extendTo(CellPosition cell) {
  head_ = cell;
  if (blocks_.empty() || !blocks_.back().contains(anchor_)) blocks_.emplace_back();
  blocks_.back() = shaped(blockBetween(anchor_, head_));
}

void GridSelection::toggle(CellPosition cell) {
  if (blocks_.empty()) blocks_.push_back(shaped(blockBetween(anchor_, anchor_)));
  if (isMarked(cell))
    unmark(cell);
  else
    blocks_.push_back(shaped(blockBetween(cell, cell)));
  anchor_ = head_ = cell;
}

void GridSelection::unmark(CellPosition cell) {
  const CellBlock hole = shaped(blockBetween(cell, cell));
  std::vector<CellBlock> rest;
  for (const CellBlock& block : blocks_)
    if (block.contains(cell))
      appendRest(rest, block, hole);
    else
      rest.push_back(block);
  blocks_ = std::move(rest);
}

void GridSelection::take(const CellBlock& block) {
  blocks_.clear();
  add(block);
}

void GridSelection::add(const CellBlock& block) {
  anchor_ = {block.row, block.col};
  head_ = {block.row2, block.col2};
  blocks_.push_back(shaped(block));
}

void GridSelection::replaceLast(const CellBlock& block) {
  if (!blocks_.empty()) blocks_.pop_back();
  add(block);
}

}  // namespace tolmer
