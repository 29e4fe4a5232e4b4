#include "platform/qt/grid_view.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>
#include <QTimer>
#include <algorithm>

#include "platform/qt/convert.h"
#include "platform/qt/grid_view_accessible.h"
#include "platform/qt/grid_view_painter.h"
#include "platform/qt/input_filter.h"
#include "platform/qt/theme.h"

namespace tolmer {
namespace {

constexpr int dragTick = 40;  // milliseconds

MouseButton modelButton(Qt::MouseButton button) {
  return button == Qt::RightButton ? MouseButton::right : MouseButton::left;
}

bool isModelButton(Qt::MouseButton button) {
  return button == Qt::LeftButton || button == Qt::RightButton;
}

Qt::ScrollBarPolicy policy(bool on) { return on ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff; }

// The value of a scroll bar at which the cell is seen whole, or its beginning where it is larger
// than the room.
int scrolledTo(const GridAxis& axis, int index, int value, int viewport) {
  if (index <= axis.frozen()) return value;
  const int room = viewport - axis.frozenEnd();
  const int begin = axis.start(index) - axis.frozenEnd();
  const int end = begin + axis.size(index) + 1;
  return std::min(std::max(value, end - room), begin);
}

}  // namespace

GridView::GridView(Grid& grid, QWidget* parent)
    : QAbstractScrollArea(parent), grid_(grid), shown_(grid.selection()) {
  installGridAccessibility();
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::StrongFocus);
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
  refresh(Change::all);
}

void GridView::refresh(Change what) {
  if (has(what, Change::tip)) {
    setAccessibleName(toQt(grid_.accessibleName()));
    setAccessibleDescription(toQt(grid_.accessibleDescription()));
  }
  if (has(what, Change::items)) setScrollRanges();
  if (has(what, Change::content | Change::items | Change::look)) viewport()->update();
  if (has(what, Change::value)) showSelection();
  if (has(what, Change::items) && QAccessible::isActive()) {
    QAccessibleTableModelChangeEvent event(this, QAccessibleTableModelChangeEvent::ModelReset);
    QAccessible::updateAccessibility(&event);
  }
}

void GridView::setScrollRanges() {
  const ScrollBars bars = grid_.scrollBars();
  setHorizontalScrollBarPolicy(policy(bars == ScrollBars::horizontal || bars == ScrollBars::both));
  setVerticalScrollBarPolicy(policy(bars == ScrollBars::vertical || bars == ScrollBars::both));
  const auto set = [](QScrollBar& bar, const GridAxis& axis, int room) {
    bar.setRange(0, std::max(axis.total() - room, 0));
    bar.setPageStep(std::max(room - axis.frozenEnd(), 1));
    bar.setSingleStep(axis.count() > 0 ? axis.size(axis.count() > 1 ? 2 : 1) + 1 : 1);
  };
  set(*horizontalScrollBar(), grid_.colAxis(), viewport()->width());
  set(*verticalScrollBar(), grid_.rowAxis(), viewport()->height());
}

QRect GridView::cellRect(CellPosition cell) const {
  const GridAxis& cols = grid_.colAxis();
  const GridAxis& rows = grid_.rowAxis();
  const int x = cell.col > cols.frozen() ? horizontalScrollBar()->value() : 0;
  const int y = cell.row > rows.frozen() ? verticalScrollBar()->value() : 0;
  return {cols.start(cell.col) - x, rows.start(cell.row) - y, cols.size(cell.col),
          rows.size(cell.row)};
}

CellPosition GridView::cellAt(QPoint place) const {
  const GridAxis& cols = grid_.colAxis();
  const GridAxis& rows = grid_.rowAxis();
  if (place.x() >= cols.frozenEnd()) place.rx() += horizontalScrollBar()->value();
  if (place.y() >= rows.frozenEnd()) place.ry() += verticalScrollBar()->value();
  return {rows.at(place.y()), cols.at(place.x())};
}

bool GridView::isOverCells(QPoint place) const {
  return viewport()->rect().contains(place) &&
         place.x() + horizontalScrollBar()->value() < grid_.colAxis().total() &&
         place.y() + verticalScrollBar()->value() < grid_.rowAxis().total();
}

void GridView::bringIntoView(CellPosition cell) {
  QScrollBar& across = *horizontalScrollBar();
  QScrollBar& down = *verticalScrollBar();
  across.setValue(scrolledTo(grid_.colAxis(), cell.col, across.value(), viewport()->width()));
  down.setValue(scrolledTo(grid_.rowAxis(), cell.row, down.value(), viewport()->height()));
}

// A plain move of the active cell repaints two cells; that is ten times faster than all of them.
void GridView::showSelection() {
  const GridSelection before = std::exchange(shown_, grid_.selection());
  if (before == shown_) return;
  const bool isPlain = before.blocks().empty() && shown_.blocks().empty();
  if (isPlain && grid_.selectionMode() == SelectionMode::cells) {
    repaintCell(before.active());
    repaintCell(shown_.active());
  } else {
    viewport()->update();
  }
  if (isVisible()) bringIntoView(shown_.head());
  tellFocusedCell();
}

void GridView::repaintCell(CellPosition cell) {
  // The frame around the active cell lies on its lines.
  viewport()->update(cellRect(cell).adjusted(-2, -2, 2, 2));
}

void GridView::tellFocusedCell() {
  if (!QAccessible::isActive() || !hasFocus() || grid_.selectionMode() == SelectionMode::none)
    return;
  QAccessibleEvent event(this, QAccessible::Focus);
  event.setChild(accessibleIndex(grid_, shown_.active()));
  QAccessible::updateAccessibility(&event);
}

void GridView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  paintGrid(painter, *this, event->rect());
  if (!focusByKey_ || grid_.selectionMode() != SelectionMode::none) return;
  painter.setPen(theme::accent);
  painter.drawRect(viewport()->rect().adjusted(0, 0, -1, -1));
}

void GridView::resizeEvent(QResizeEvent*) { setScrollRanges(); }

// Copies what moves, so that only the cells that come up are painted.
void GridView::scrollContentsBy(int dx, int dy) {
  const QRect all = viewport()->rect();
  const int left = grid_.colAxis().frozenEnd();
  const int top = grid_.rowAxis().frozenEnd();
  viewport()->scroll(dx, dy, QRect(left, top, all.width() - left, all.height() - top));
  if (dx != 0 && top > 0) viewport()->scroll(dx, 0, QRect(left, 0, all.width() - left, top));
  if (dy != 0 && left > 0) viewport()->scroll(0, dy, QRect(0, top, left, all.height() - top));
}

// In these handlers the model's may unload the grid, and this view goes a little later: so nothing
// is asked of the grid after a call into it but through `enter`.
void GridView::mousePressEvent(QMouseEvent* event) {
  if (!isModelButton(event->button())) return;
  const QPoint place = event->position().toPoint();
  const CellPosition cell = cellAt(place);
  dragging_ = event->button() == Qt::LeftButton && isOverCells(place);
  const ClickKeys held{event->modifiers().testFlag(Qt::ShiftModifier),
                       event->modifiers().testFlag(Qt::ControlModifier)};
  const QPointer<GridView> alive(this);
  enter([&] { tolmer::raise(grid_.MouseDown, modelButton(event->button())); });
  if (alive && dragging_) enter([&] { grid_.press(cell, held); });
}

void GridView::mouseMoveEvent(QMouseEvent* event) {
  if (!dragging_) return;
  dragPlace_ = event->position().toPoint();
  if (viewport()->rect().contains(dragPlace_))
    dragTimer_.stop();
  else if (!dragTimer_.isActive())
    dragTimer_.start(dragTick, this);
  dragTo(dragPlace_);
}

void GridView::dragTo(QPoint place) {
  const QRect inside = viewport()->rect();
  place.setX(std::clamp(place.x(), inside.left(), inside.right()));
  place.setY(std::clamp(place.y(), inside.top(), inside.bottom()));
  enter([&] { grid_.dragTo(cellAt(place)); });
}

void GridView::timerEvent(QTimerEvent* event) {
  if (event->timerId() != dragTimer_.timerId()) return QAbstractScrollArea::timerEvent(event);
  const QRect inside = viewport()->rect();
  const auto beyond = [](int at, int low, int high) {
    return at < low ? at - low : std::max(at - high, 0);
  };
  QScrollBar& across = *horizontalScrollBar();
  QScrollBar& down = *verticalScrollBar();
  across.setValue(across.value() + beyond(dragPlace_.x(), inside.left(), inside.right()));
  down.setValue(down.value() + beyond(dragPlace_.y(), inside.top(), inside.bottom()));
  dragTo(dragPlace_);
}

void GridView::mouseReleaseEvent(QMouseEvent* event) {
  if (!isModelButton(event->button())) return;
  const QPoint place = event->position().toPoint();
  const bool clicked = event->button() == Qt::LeftButton && isOverCells(place);
  const CellPosition cell = cellAt(place);
  if (event->button() == Qt::LeftButton) endDrag();
  const QPointer<GridView> alive(this);
  raiseMouseUp(modelButton(event->button()));
  if (alive && clicked) enter([&] { grid_.click(cell); });
}

void GridView::endDrag() {
  dragging_ = false;
  dragTimer_.stop();
}

// Before its first showing a view has no size to scroll in.
void GridView::showEvent(QShowEvent*) {
  if (grid_.selectionMode() != SelectionMode::none) bringIntoView(shown_.head());
}

void GridView::hideEvent(QHideEvent*) { endDrag(); }

void GridView::raiseMouseUp(MouseButton button) {
  enter([&] { tolmer::raise(grid_.MouseUp, button); });
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
  const QPoint place = event->position().toPoint();
  if (event->button() == Qt::LeftButton && isOverCells(place))
    enter([&] { grid_.doubleClick(cellAt(place)); });
}

void GridView::keyPressEvent(QKeyEvent* event) {
  const bool isMenuKey = event->key() == Qt::Key_Menu ||
                         (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier);
  if (isMenuKey) return raiseMouseUp(MouseButton::right);
  const bool isTable = grid_.selectionMode() == SelectionMode::none;
  // The first cell may be a frozen one, which is on the screen always: the rest comes back too.
  const bool toFirst = event->key() == Qt::Key_Home && event->modifiers() == Qt::ControlModifier;
  bool taken = (isTable || toFirst) && scrollByKey(event->key());
  enter([&] { taken = grid_.pressKey(toKeyPress(*event)) || taken; });
  if (!taken) QAbstractScrollArea::keyPressEvent(event);
}

// The arrows and Page keys scroll by themselves.
bool GridView::scrollByKey(int key) {
  QScrollBar& down = *verticalScrollBar();
  QScrollBar& across = *horizontalScrollBar();
  if (key != Qt::Key_Home && key != Qt::Key_End) return false;
  across.setValue(across.minimum());
  down.setValue(key == Qt::Key_Home ? down.minimum() : down.maximum());
  return true;
}

void GridView::focusInEvent(QFocusEvent* event) {
  focusByKey_ = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
  viewport()->update();
  // The widget's own focus event comes after this one and would hide the cell's.
  QTimer::singleShot(0, this, [this] { tellFocusedCell(); });
}

void GridView::focusOutEvent(QFocusEvent*) {
  focusByKey_ = false;
  viewport()->update();
}

}  // namespace tolmer
