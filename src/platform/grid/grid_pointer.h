// The pointer on a grid.
#pragma once

#include <functional>
#include <memory>

#include "platform/grid/grid_sight.h"

namespace tolmer {

// Leads presses and drags to cells and headings, to the right edges of columns in the uppermost
// row, which can be dragged (a double click there fits the column to its widest text), and to the
// fill corner.
//
// Handlers of the grid's events may unload it. So all calls into it go through `enter`, which
// does nothing any more once the grid is gone; this object may be gone then, too.
class GridPointer {
 public:
  using Enter = std::function<void(const std::function<void()>&)>;
  GridPointer(GridSight& sight, Grid& grid, Enter enter);

  void press(PixelPoint at, MouseButton button, ClickKeys held);
  void moveTo(PixelPoint at);
  // To be called every so many milliseconds while a drag rests outside the viewport.
  static constexpr int tick = 40;
  void scrollOn();
  void release(PixelPoint at, MouseButton button);
  void doubleClick(PixelPoint at);
  // The grid is hidden.
  void giveUp();

  bool isDragging() const { return drag_ != Drag::none; }
  // Does a drag wait for the cells to scroll?
  bool isBeyond() const;
  // What a press would take hold of there.
  bool isOnEdge(PixelPoint at) const { return edgeAt(at) > 0; }
  bool isOnCorner(PixelPoint at) const;

 private:
  enum class Drag { none, cells, fill, width };
  using Life = std::weak_ptr<const int>;
  // The column whose right edge is there; 0 without.
  int edgeAt(PixelPoint at) const;
  bool pressHandle(PixelPoint at);
  void pressCell(PixelPoint at, MouseButton button, ClickKeys held);
  void reach();
  void set(Drag drag);

  GridSight& sight_;
  Grid& grid_;
  EditGrid* edited_;  // the same one; null for a table
  Enter enter_;
  std::shared_ptr<const int> life_ = std::make_shared<const int>(0);
  Drag drag_ = Drag::none;
  int column_ = 0;  // whose width is dragged
  PixelPoint at_;
};

}  // namespace tolmer
