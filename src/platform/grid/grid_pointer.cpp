#include "platform/grid/grid_pointer.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace tolmer {
namespace {

constexpr int edgeReach = 4;    // pixels to either side of the line behind a column
constexpr int cornerSlack = 1;  // around the fill corner

}  // namespace

GridPointer::GridPointer(GridSight& sight, Grid& grid, Enter enter)
    : sight_(sight),
      grid_(grid),
      edited_(dynamic_cast<EditGrid*>(&grid)),
      enter_(std::move(enter)) {}

void GridPointer::set(Drag drag) {
  drag_ = drag;
  sight_.isDrawn = isDragging();
}

void GridPointer::press(PixelPoint at, MouseButton button, ClickKeys held) {
  at_ = at;
  if (button == MouseButton::left && pressHandle(at)) return;
  pressCell(at, button, held);
}

bool GridPointer::pressHandle(PixelPoint at) {
  column_ = edgeAt(at);
  if (column_ > 0) {
    set(Drag::width);
    return true;
  }
  if (!isOnCorner(at)) return false;
  set(Drag::fill);
  enter_([this] { edited_->startFill(); });
  return true;
}

void GridPointer::pressCell(PixelPoint at, MouseButton button, ClickKeys held) {
  const CellPosition cell = sight_.cellAt(at);
  const bool isOver = sight_.isOverCells(at);
  const bool isLeft = button == MouseButton::left;
  set(isOver && isLeft ? Drag::cells : Drag::none);
  const Life life = life_;
  enter_([&] { raise(grid_.MouseDown, button); });
  if (life.expired() || !isOver) return;
  if (isLeft) return enter_([&] { grid_.press(cell, held); });
  if (edited_) enter_([&] { edited_->pressForMenu(cell); });
}

void GridPointer::moveTo(PixelPoint at) {
  at_ = at;
  if (drag_ == Drag::none) return;
  if (drag_ != Drag::width) return reach();
  const int width = std::max(at.x - sight_.boxOf({1, column_}).left, 0);
  enter_(
      [&] { edited_->dragColWidth(column_, pixels(static_cast<float>(width)) / sight_.scale()); });
}

void GridPointer::reach() {
  const PixelBox room = sight_.room();
  const CellPosition cell = sight_.cellAt({std::clamp(at_.x, 0, std::max(room.right - 1, 0)),
                                           std::clamp(at_.y, 0, std::max(room.bottom - 1, 0))});
  enter_([&] { drag_ == Drag::fill ? edited_->fillTo(cell) : grid_.dragTo(cell); });
}

bool GridPointer::isBeyond() const {
  return (drag_ == Drag::cells || drag_ == Drag::fill) && !sight_.room().contains(at_);
}

void GridPointer::scrollOn() {
  if (!isBeyond()) return;
  const auto beyond = [](int at, int end) { return at < 0 ? at : std::max(at - end + 1, 0); };
  const PixelPoint from = sight_.scrolled();
  sight_.scrollTo(
      {from.x + beyond(at_.x, sight_.room().right), from.y + beyond(at_.y, sight_.room().bottom)});
  reach();
}

void GridPointer::release(PixelPoint at, MouseButton button) {
  const bool isLeft = button == MouseButton::left;
  const Drag drag = drag_;
  if (isLeft) set(Drag::none);
  if (isLeft && drag == Drag::width) return;
  if (isLeft && drag == Drag::fill) return enter_([this] { edited_->endFill(); });
  const bool isClick = isLeft && sight_.isOverCells(at);
  const CellPosition cell = sight_.cellAt(at);
  const Life life = life_;
  enter_([&] { raise(grid_.MouseUp, button); });
  if (isClick && !life.expired()) enter_([&] { grid_.click(cell); });
}

void GridPointer::doubleClick(PixelPoint at) {
  if (const int col = edgeAt(at))
    return enter_([&] { edited_->dragColWidth(col, edited_->widestText(col)); });
  if (isOnCorner(at)) return enter_([this] { edited_->fillBeside(); });
  if (!sight_.isOverCells(at)) return;
  const CellPosition cell = sight_.cellAt(at);
  enter_([&] { grid_.doubleClick(cell); });
}

void GridPointer::giveUp() {
  const bool fills = drag_ == Drag::fill;
  set(Drag::none);
  if (fills) enter_([this] { edited_->cancelFill(); });
}

int GridPointer::edgeAt(PixelPoint at) const {
  if (!edited_) return 0;
  const GridAxis& cols = sight_.colAxis();
  const int uppermost = sight_.rowAxis().size(0) > 0 ? 0 : 1;
  const CellPosition cell = sight_.cellAt(at);
  if (cell.row != uppermost) return 0;
  for (const int col : {cell.col, cell.col - 1})
    if (col > 0 && cols.size(col) > 0 &&
        std::abs(sight_.boxOf({uppermost, col}).right - at.x) <= edgeReach)
      return col;
  return 0;
}

bool GridPointer::isOnCorner(PixelPoint at) const {
  const PixelBox corner = sight_.fillCorner();
  return !corner.isEmpty() && corner.grown(cornerSlack).contains(at);
}

}  // namespace tolmer
