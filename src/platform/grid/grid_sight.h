// What of a grid is seen through a viewport.
#pragma once

#include <optional>

#include "platform/grid/edit_grid.h"

namespace tolmer {

// Logical pixels, from the upper left corner of the viewport unless it is said otherwise.
struct PixelPoint {
  int x = 0;
  int y = 0;
  friend bool operator==(const PixelPoint&, const PixelPoint&) = default;
};

// Its right and lower edge lie outside.
struct PixelBox {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  bool isEmpty() const { return right <= left || bottom <= top; }
  bool contains(PixelPoint at) const {
    return left <= at.x && at.x < right && top <= at.y && at.y < bottom;
  }
  PixelBox grown(int by) const { return {left - by, top - by, right + by, bottom + by}; }
};

// Where the cells lie on the screen and how far they are scrolled: what the user moves to comes
// into sight. The mirror tells how large the viewport is, each change of the grid, and what the
// user scrolls; it shows the cells where this says.
class GridSight {
 public:
  explicit GridSight(Grid& grid);

  // After the grid has told that it changed; it is shown so many times as large.
  void follow(Change what, float scale);
  // Size of the viewport; nothing while it is not on the screen.
  void setRoom(int width, int height);
  void scrollTo(PixelPoint place);
  // Home and End, which scroll a table, and with Control also a grid back to its first cells;
  // whether it was one of these.
  bool scrollByKey(const KeyPress& key);
  void bringIntoView(CellPosition cell);
  // While the pointer draws over the cells it decides what is seen.
  bool isDrawn = false;

  float scale() const { return scale_; }
  const GridAxis& rowAxis() const { return scaled(grid_.rowAxis(), rows_); }
  const GridAxis& colAxis() const { return scaled(grid_.colAxis(), cols_); }
  PixelBox room() const { return {0, 0, width_, height_}; }
  PixelPoint scrolled() const { return scrolled_; }
  // As followed last.
  const GridSelection& selection() const { return selection_; }
  int currentRow() const { return currentRow_; }

  // Without its lines; empty where the table has no such cell any more.
  PixelBox boxOf(CellPosition cell) const;
  // The part of the viewport in which the cell shows: what is frozen, or what scrolls.
  PixelBox partOf(CellPosition cell) const;
  // The square at the lower right corner of the selection that is drawn out to fill cells; empty
  // where there is none.
  PixelBox fillCorner() const;
  // The cell at that place, the nearest one beside all cells.
  CellPosition cellAt(PixelPoint place) const;
  bool isOverCells(PixelPoint place) const;

 private:
  const GridAxis& scaled(const GridAxis& axis, GridAxis& copy) const;
  bool isSeen() const { return width_ > 0 && height_ > 0; }
  void showSelection();
  void showCurrentRow();
  void showEdit();

  Grid& grid_;
  EditGrid* edited_;  // the same one; null for a table
  float scale_ = 1;
  mutable GridAxis rows_, cols_;  // scaled, where that is not as in the grid
  int width_ = 0;
  int height_ = 0;
  PixelPoint scrolled_;
  GridSelection selection_;
  int currentRow_ = 0;
  std::optional<CellBlock> pointed_;
  bool isOpen_ = false;
};

}  // namespace tolmer
