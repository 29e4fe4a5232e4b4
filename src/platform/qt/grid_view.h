// A grid on the screen.
#pragma once

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <functional>
#include <optional>

#include "platform/grid/grid_pointer.h"

namespace tolmer {

class GridCellEditor;

// Shows the cells of a grid and hands mouse and keys to it; what is selected, and where a key
// leads, the grid decides. Positions are logical pixels of the viewport. A view whose grid goes
// first must be hidden, and its `enter` made to do nothing.
class GridView : public QAbstractScrollArea {
 public:
  explicit GridView(Grid& grid, QWidget* parent = nullptr);
  ~GridView() override;

  // After the grid has told that it changed.
  void refresh(Change what);

  Grid& grid() const { return grid_; }
  const EditGrid* editGrid() const { return editGrid_; }
  // Where rows and columns lie at the scale at which they are shown.
  float scale() const { return sight_.scale(); }
  const GridAxis& rowAxis() const { return sight_.rowAxis(); }
  const GridAxis& colAxis() const { return sight_.colAxis(); }
  // Where the cell lies now, without its lines; outside the viewport where it is scrolled away, and
  // empty where the table has no such cell any more.
  QRect cellRect(CellPosition cell) const;
  // The part of the viewport in which the cell shows: what is frozen, or what scrolls.
  QRect partOf(CellPosition cell) const;
  // What the frame of the active cell surrounds: the cell, or the line open over it.
  QRect activePlace() const;
  // The square at the lower right corner of the selection that is drawn out to fill cells; empty
  // where there is none.
  QRect fillCorner() const;
  // The block with its lines, as far as it shows.
  QRect placeOf(const CellBlock& block) const;
  // The keyboard is in the grid, in a cell or on it.
  bool holdsFocus() const;
  // The cell at that place, the nearest one beside all cells.
  CellPosition cellAt(QPoint place) const { return sight_.cellAt({place.x(), place.y()}); }
  // Scrolls until the cell is on the screen, as far as it fits.
  void bringIntoView(CellPosition cell);

  // All calls into the model go through this function, which may hold back what they throw, and
  // which does nothing any more once the model is gone.
  std::function<void(const std::function<void()>&)> enter = [](const std::function<void()>& work) {
    work();
  };

  QSize sizeHint() const override { return {480, 280}; }

 protected:
  bool viewportEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void setScrollRanges();
  void showScrolled();
  void repaintSelection(const GridSelection& before);
  void repaintCell(CellPosition cell);
  void tellFocusedCell();
  void raiseMouseUp(MouseButton button);
  void openMenuAtCell();
  void showPointer(PixelPoint place);
  void showDrawnBlocks();
  void typeKey(const QKeyEvent& event, bool& taken);

  Grid& grid_;
  EditGrid* editGrid_;                // the same one; null for a table
  GridCellEditor* editor_ = nullptr;  // with editGrid_
  GridSight sight_;
  GridPointer pointer_;
  std::optional<CellBlock> shownPointed_, shownFill_;
  bool focusByKey_ = false;  // the focus came by the keyboard: it has to be seen
  QBasicTimer dragTimer_;    // scrolls while a drag rests outside the viewport
};

}  // namespace tolmer
