// Column widths by the mouse.
#pragma once

#include <QPoint>

#include "platform/grid/edit_grid.h"

namespace tolmer {

class GridView;

// The right edge of a column in the uppermost row can be dragged; a double click there fits the
// column to its widest text. Each call tells whether the mouse was on such an edge, and then it is
// nobody else's.
class GridColumnDrag {
 public:
  GridColumnDrag(GridView& view, EditGrid& grid) : view_(view), grid_(grid) {}

  bool press(QPoint place);
  // Shows the pointer of an edge, too.
  bool moveTo(QPoint place);
  bool release();
  bool doubleClick(QPoint place);

 private:
  // The column whose right edge is there; 0 without.
  int edgeAt(QPoint place) const;

  GridView& view_;
  EditGrid& grid_;
  int dragged_ = 0;
};

}  // namespace tolmer
