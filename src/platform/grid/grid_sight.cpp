#include "platform/grid/grid_sight.h"

#include <algorithm>
#include <utility>

namespace tolmer {
namespace {

constexpr int cornerReach = 3;  // to either side of the middle of the fill corner

}  // namespace

GridSight::GridSight(Grid& grid)
    : grid_(grid), edited_(dynamic_cast<EditGrid*>(&grid)), selection_(grid.selection()) {}

const GridAxis& GridSight::scaled(const GridAxis& axis, GridAxis& copy) const {
  if (scale_ == 1) return axis;
  if (copy.count() != axis.count()) copy = axis.scaled(scale_);
  return copy;
}

void GridSight::follow(Change what, float scale) {
  if (has(what, Change::items | Change::look)) {
    scale_ = scale;
    rows_ = cols_ = GridAxis();
    scrollTo(scrolled_);
  }
  if (has(what, Change::value)) showSelection();
  if (has(what, Change::value | Change::content)) showCurrentRow();
  if (edited_ && has(what, Change::text)) showEdit();
}

// Before its first showing there is no size to scroll in.
void GridSight::setRoom(int width, int height) {
  const bool comesUp = !isSeen();
  width_ = width;
  height_ = height;
  if (!isSeen()) return;
  scrollTo(scrolled_);
  if (!comesUp) return;
  if (grid_.selectionMode() != SelectionMode::none) bringIntoView(selection_.head());
  if (currentRow_ > 0) bringIntoView({currentRow_, 0});
}

void GridSight::scrollTo(PixelPoint place) {
  scrolled_ = {std::clamp(place.x, 0, std::max(colAxis().total() - width_, 0)),
               std::clamp(place.y, 0, std::max(rowAxis().total() - height_, 0))};
}

// The arrows and Page keys scroll by themselves.
bool GridSight::scrollByKey(const KeyPress& key) {
  const bool isTable = grid_.selectionMode() == SelectionMode::none;
  // The first cell may be a frozen one, which is on the screen always: the rest comes back too.
  const bool toFirst = key.code == keys::home && key.control && !key.shift && !key.alt;
  if (!toFirst && !(isTable && (key.code == keys::home || key.code == keys::end))) return false;
  scrollTo({0, key.code == keys::home ? 0 : rowAxis().total()});
  return true;
}

void GridSight::bringIntoView(CellPosition cell) {
  if (!isSeen()) return;
  scrollTo({colAxis().scrolledTo(cell.col, scrolled_.x, width_),
            rowAxis().scrolledTo(cell.row, scrolled_.y, height_)});
}

// To mark whole rows or columns is no wish to see their ends. A block that was marked at one stroke
// is seen from its first cell on.
void GridSight::showSelection() {
  const GridSelection before = std::exchange(selection_, grid_.selection());
  if (before == selection_) return;
  CellPosition head = selection_.head();
  CellPosition first = selection_.active();
  if (!selection_.blocks().empty()) {
    const CellBlock& last = selection_.blocks().back();
    if (last.row == 1 && last.row2 == grid_.maxRows()) head.row = first.row = 0;
    if (last.col == 1 && last.col2 == grid_.maxCols()) head.col = first.col = 0;
  }
  bringIntoView(head);
  if (before.active() != selection_.active()) bringIntoView(first);
}

void GridSight::showCurrentRow() {
  if (std::exchange(currentRow_, grid_.currentRow()) == grid_.currentRow()) return;
  if (currentRow_ > 0) bringIntoView({currentRow_, 0});
}

// The cell that opens, and what is pointed at.
void GridSight::showEdit() {
  if (!std::exchange(isOpen_, edited_->editMode()) && isOpen_) bringIntoView(edited_->editCell());
  const auto before = std::exchange(pointed_, edited_->pointed());
  if (pointed_ && pointed_ != before && !isDrawn) bringIntoView({pointed_->row2, pointed_->col2});
}

PixelBox GridSight::boxOf(CellPosition cell) const {
  const GridAxis& rows = rowAxis();
  const GridAxis& cols = colAxis();
  if (cell.row > rows.count() || cell.col > cols.count()) return {};
  const int left = cols.start(cell.col) - (cell.col > cols.frozen() ? scrolled_.x : 0);
  const int top = rows.start(cell.row) - (cell.row > rows.frozen() ? scrolled_.y : 0);
  return {left, top, left + cols.size(cell.col), top + rows.size(cell.row)};
}

PixelBox GridSight::partOf(CellPosition cell) const {
  PixelBox part = room();
  if (cell.col > colAxis().frozen()) part.left = colAxis().frozenEnd();
  if (cell.row > rowAxis().frozen()) part.top = rowAxis().frozenEnd();
  return part;
}

PixelBox GridSight::fillCorner() const {
  const auto block = edited_ ? edited_->fillSource() : std::nullopt;
  if (!block || edited_->fillTarget()) return {};
  const CellPosition cell{block->row2, block->col2};
  const PixelBox last = boxOf(cell);
  if (!partOf(cell).grown(1).contains({last.right - 1, last.bottom - 1})) return {};
  return {last.right - cornerReach, last.bottom - cornerReach, last.right + cornerReach + 1,
          last.bottom + cornerReach + 1};
}

CellPosition GridSight::cellAt(PixelPoint place) const {
  if (place.x >= colAxis().frozenEnd()) place.x += scrolled_.x;
  if (place.y >= rowAxis().frozenEnd()) place.y += scrolled_.y;
  return {rowAxis().at(place.y), colAxis().at(place.x)};
}

bool GridSight::isOverCells(PixelPoint place) const {
  return room().contains(place) && place.x + scrolled_.x < colAxis().total() &&
         place.y + scrolled_.y < rowAxis().total();
}

}  // namespace tolmer
