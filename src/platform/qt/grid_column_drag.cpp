#include "platform/qt/grid_column_drag.h"

#include <cstdlib>

#include "platform/qt/convert.h"
#include "platform/qt/grid_view.h"

namespace tolmer {
namespace {

constexpr int reach = 4;  // pixels to either side of the line

}  // namespace

int GridColumnDrag::edgeAt(QPoint place) const {
  const int uppermost = grid_.rowAxis().size(0) > 0 ? 0 : 1;
  const CellPosition cell = view_.cellAt(place);
  if (cell.row != uppermost) return 0;
  for (const int col : {cell.col, cell.col - 1})
    if (col >= 0 && view_.colAxis().size(col) > 0 &&
        std::abs(view_.cellRect({uppermost, col}).right() + 1 - place.x()) <= reach)
      return col;
  return 0;
}

bool GridColumnDrag::press(QPoint place) {
  dragged_ = edgeAt(place);
  return dragged_ > 0;
}

bool GridColumnDrag::moveTo(QPoint place) {
  if (dragged_ == 0) {
    const bool onEdge = edgeAt(place) > 0;
    if (onEdge)
      view_.viewport()->setCursor(Qt::SplitHCursor);
    else
      view_.viewport()->unsetCursor();
    return onEdge;
  }
  const int width = place.x() - view_.cellRect({1, dragged_}).left();
  view_.enter([&] { grid_.dragColWidth(dragged_, toTwips(width, view_.scale())); });
  return true;
}

bool GridColumnDrag::release() { return std::exchange(dragged_, 0) > 0; }

bool GridColumnDrag::doubleClick(QPoint place) {
  const int col = edgeAt(place);
  if (col > 0) view_.enter([&] { grid_.dragColWidth(col, grid_.widestText(col)); });
  return col > 0;
}

}  // namespace tolmer
