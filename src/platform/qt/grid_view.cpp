#include "platform/qt/grid_view.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>
#include <QTimer>
#include <QToolTip>
#include <algorithm>

#include "platform/qt/convert.h"
#include "platform/qt/grid_cell_editor.h"
#include "platform/qt/grid_column_drag.h"
#include "platform/qt/grid_view_accessible.h"
#include "platform/qt/grid_view_painter.h"
#include "platform/qt/input_filter.h"
#include "platform/qt/menu_peer.h"
#include "platform/qt/theme.h"

// Keys and input methods of a grid.

namespace tolmer {
namespace {

constexpr int dragTick = 40;  // milliseconds
constexpr int fillCornerSize = 7;

Qt::ScrollBarPolicy policy(bool on) { return on ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff; }

// The value of a scroll bar at which the cell is seen whole, or its beginning where it is larger
// than the room. An empty table has no cell for the selection to be in.
int scrolledTo(const GridAxis& axis, int index, int value, int viewport) {
  if (index <= axis.frozen() || index > axis.count()) return value;
  const int room = viewport - axis.frozenEnd();
  const int begin = axis.start(index) - axis.frozenEnd();
  const int least = begin + axis.size(index) + 1 - room;
  if (least <= value) return std::min(value, begin);
  // Scrolled on, what follows the frozen part is whole: the end of a number looks like a number.
  const int first = axis.at(axis.frozenEnd() + least - 1) + 1;
  return std::min(axis.start(first) - axis.frozenEnd(), begin);
}

// The pixels that the rows (columns) from one to the other take on the screen, the frame on their
// lines included.
struct Span {
  int from;
  int to;
};

Span shownSpan(const GridAxis& axis, int first, int last, int scrolled) {
  Span span{axis.total(), 0};
  if (first <= axis.frozen())
    span = {axis.start(first), axis.start(std::min(last, axis.frozen()) + 1)};
  if (last > axis.frozen()) {
    const int from = axis.start(std::max(first, axis.frozen() + 1)) - scrolled;
    span.from = std::min(span.from, std::max(from, axis.frozenEnd()));
    span.to = std::max(span.to, axis.start(last + 1) - scrolled);
  }
  return {span.from - 2, span.to + 2};
}

}  // namespace

GridView::GridView(Grid& grid, QWidget* parent)
    : QAbstractScrollArea(parent),
      grid_(grid),
      editGrid_(dynamic_cast<EditGrid*>(&grid)),
      shown_(grid.selection()) {
  installGridAccessibility();
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::StrongFocus);
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
  if (editGrid_) {
    setAttribute(Qt::WA_InputMethodEnabled);
    viewport()->setMouseTracking(true);
    editor_ = new GridCellEditor(*this, *editGrid_);
    columnDrag_ = std::make_unique<GridColumnDrag>(*this, *editGrid_);
  }
  refresh(Change::all);
}

GridView::~GridView() = default;

const GridAxis& GridView::scaled(const GridAxis& axis, GridAxis& copy) const {
  if (scale_ == 1) return axis;
  if (copy.count() != axis.count()) copy = axis.scaled(scale_);
  return copy;
}

const GridAxis& GridView::rowAxis() const { return scaled(grid_.rowAxis(), rows_); }
const GridAxis& GridView::colAxis() const { return scaled(grid_.colAxis(), cols_); }

void GridView::refresh(Change what) {
  if (has(what, Change::items | Change::look)) {
    scale_ = scaleOf(grid_);
    rows_ = cols_ = GridAxis();
  }
  if (has(what, Change::tip)) {
    setAccessibleName(toQt(grid_.accessibleName()));
    setAccessibleDescription(toQt(grid_.accessibleDescription()));
  }
  if (has(what, Change::items | Change::look)) setScrollRanges();
  if (has(what, Change::items | Change::look))
    viewport()->update();
  else if (has(what, Change::content))
    viewport()->update(placeOf(grid_.changedCells()));
  if (has(what, Change::value)) showSelection();
  if (has(what, Change::value | Change::content)) showCurrentRow();
  if (editor_ && has(what, Change::text)) editor_->follow();
  if (editor_ && has(what, Change::text)) showDrawnBlocks();
  if (editor_ && has(what, Change::items | Change::look)) editor_->stand();
  if (has(what, Change::items) && QAccessible::isActive()) {
    QAccessibleTableModelChangeEvent event(this, QAccessibleTableModelChangeEvent::ModelReset);
    QAccessible::updateAccessibility(&event);
  }
}

bool GridView::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QAbstractScrollArea::viewportEvent(event);
  const auto& help = static_cast<QHelpEvent&>(*event);
  const CellPosition cell = cellAt(help.pos());
  const std::string remark = isOverCells(help.pos()) ? grid_.tipOn(cell) : std::string();
  QToolTip::showText(help.globalPos(), wrappedTip(remark), viewport(), cellRect(cell));
  return true;
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
  set(*horizontalScrollBar(), colAxis(), viewport()->width());
  set(*verticalScrollBar(), rowAxis(), viewport()->height());
}

QRect GridView::cellRect(CellPosition cell) const {
  const GridAxis& cols = colAxis();
  const GridAxis& rows = rowAxis();
  if (cell.row > rows.count() || cell.col > cols.count()) return {};
  const int x = cell.col > cols.frozen() ? horizontalScrollBar()->value() : 0;
  const int y = cell.row > rows.frozen() ? verticalScrollBar()->value() : 0;
  return {cols.start(cell.col) - x, rows.start(cell.row) - y, cols.size(cell.col),
          rows.size(cell.row)};
}

QRect GridView::placeOf(const CellBlock& block) const {
  if (block.row > block.row2 || block.col > block.col2) return {};
  const Span rows = shownSpan(rowAxis(), block.row, block.row2, verticalScrollBar()->value());
  const Span cols = shownSpan(colAxis(), block.col, block.col2, horizontalScrollBar()->value());
  return {QPoint(cols.from, rows.from), QPoint(cols.to, rows.to)};
}

QRect GridView::partOf(CellPosition cell) const {
  QRect part = viewport()->rect();
  if (cell.col > colAxis().frozen()) part.setLeft(colAxis().frozenEnd());
  if (cell.row > rowAxis().frozen()) part.setTop(rowAxis().frozenEnd());
  return part;
}

QRect GridView::activePlace() const {
  return editor_ && !editor_->isHidden() ? editor_->geometry() : cellRect(grid_.activeCell());
}

bool GridView::holdsFocus() const { return hasFocus() || (editor_ && editor_->hasFocus()); }

CellPosition GridView::cellAt(QPoint place) const {
  const GridAxis& cols = colAxis();
  const GridAxis& rows = rowAxis();
  if (place.x() >= cols.frozenEnd()) place.rx() += horizontalScrollBar()->value();
  if (place.y() >= rows.frozenEnd()) place.ry() += verticalScrollBar()->value();
  return {rows.at(place.y()), cols.at(place.x())};
}

bool GridView::isOverCells(QPoint place) const {
  return viewport()->rect().contains(place) &&
         place.x() + horizontalScrollBar()->value() < colAxis().total() &&
         place.y() + verticalScrollBar()->value() < rowAxis().total();
}

void GridView::bringIntoView(CellPosition cell) {
  QScrollBar& across = *horizontalScrollBar();
  QScrollBar& down = *verticalScrollBar();
  across.setValue(scrolledTo(colAxis(), cell.col, across.value(), viewport()->width()));
  down.setValue(scrolledTo(rowAxis(), cell.row, down.value(), viewport()->height()));
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
  if (isVisible()) showHead(before.active() != shown_.active());
  tellFocusedCell();
}

void GridView::showCurrentRow() {
  if (std::exchange(shownRow_, grid_.currentRow()) == grid_.currentRow() || shownRow_ == 0) return;
  if (isVisible()) bringIntoView({shownRow_, 0});
  tellFocusedCell();
}

// To mark whole rows or columns is no wish to see their ends. A block that was marked at one stroke
// is seen from its first cell on.
void GridView::showHead(bool isNew) {
  CellPosition head = shown_.head();
  CellPosition first = shown_.active();
  if (!shown_.blocks().empty()) {
    const CellBlock& last = shown_.blocks().back();
    if (last.row == 1 && last.row2 == grid_.maxRows()) head.row = first.row = 0;
    if (last.col == 1 && last.col2 == grid_.maxCols()) head.col = first.col = 0;
  }
  bringIntoView(head);
  if (isNew) bringIntoView(first);
}

void GridView::repaintCell(CellPosition cell) {
  // The frame around the active cell lies on its lines, and its fill corner across them.
  viewport()->update(cellRect(cell).adjusted(-2, -2, fillCornerSize, fillCornerSize));
}

QRect GridView::fillCorner() const {
  const auto block = editGrid_ ? editGrid_->fillSource() : std::nullopt;
  if (!block || editGrid_->fillTarget()) return {};
  const CellPosition cell{block->row2, block->col2};
  const QPoint corner = cellRect(cell).bottomRight();
  if (!partOf(cell).adjusted(-1, -1, 1, 1).contains(corner)) return {};
  const int half = fillCornerSize / 2;
  return {corner.x() + 1 - half, corner.y() + 1 - half, fillCornerSize, fillCornerSize};
}

bool GridView::isOnFillCorner(QPoint place) const {
  const QRect corner = fillCorner();
  return !corner.isEmpty() && corner.adjusted(-1, -1, 1, 1).contains(place);
}

bool GridView::pressFillCorner(QPoint place) {
  if (!isOnFillCorner(place)) return false;
  filling_ = dragging_ = true;
  enter([this] { editGrid_->startFill(); });
  return true;
}

// What is pointed at and where a fill reaches is framed.
void GridView::showDrawnBlocks() {
  const auto pointed = editGrid_->pointed();
  const auto fill = editGrid_->fillTarget();
  if (pointed == shownPointed_ && fill == shownFill_) return;
  shownPointed_ = pointed;
  shownFill_ = fill;
  viewport()->update();
  if (pointed && !dragging_) bringIntoView({pointed->row2, pointed->col2});
}

// Later than the focus came: only while it is still here is the grid sure to be there.
void GridView::tellFocusedCell() {
  if (!hasFocus() || !QAccessible::isActive()) return;
  const auto cell = focusedCell(grid_);
  if (!cell) return;
  QAccessibleEvent event(this, QAccessible::Focus);
  event.setChild(accessibleIndex(grid_, *cell));
  QAccessible::updateAccessibility(&event);
}

void GridView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  paintGrid(painter, *this, event->rect());
  const bool isList = grid_.selectionMode() == SelectionMode::rows;
  if (!(isList ? hasFocus() : focusByKey_ && grid_.selectionMode() == SelectionMode::none)) return;
  painter.setClipping(false);
  painter.setPen(theme::accent);
  painter.drawRect(viewport()->rect().adjusted(0, 0, -1, -1));
}

void GridView::resizeEvent(QResizeEvent*) {
  setScrollRanges();
  if (editor_) editor_->stand();
}

// Copies what moves, so that only the cells that come up are painted.
void GridView::scrollContentsBy(int dx, int dy) {
  // The open cell would be copied along.
  if (editor_ && !editor_->isHidden()) {
    viewport()->update();
    return editor_->stand();
  }
  const QRect all = viewport()->rect();
  const int left = colAxis().frozenEnd();
  const int top = rowAxis().frozenEnd();
  viewport()->scroll(dx, dy, QRect(left, top, all.width() - left, all.height() - top));
  if (dx != 0 && top > 0) viewport()->scroll(dx, 0, QRect(left, 0, all.width() - left, top));
  if (dy != 0 && left > 0) viewport()->scroll(0, dy, QRect(0, top, left, all.height() - top));
}

// In these handlers the model's may unload the grid, and this view goes a little later: so nothing
// is asked of the grid after a call into it but through `enter`.
void GridView::mousePressEvent(QMouseEvent* event) {
  const auto button = modelButton(*event);
  if (!button) return;
  const QPoint place = event->position().toPoint();
  if (columnDrag_ && event->button() == Qt::LeftButton &&
      (columnDrag_->press(place) || pressFillCorner(place)))
    return;
  const CellPosition cell = cellAt(place);
  dragging_ = event->button() == Qt::LeftButton && isOverCells(place);
  const ClickKeys held{event->modifiers().testFlag(Qt::ShiftModifier),
                       event->modifiers().testFlag(Qt::ControlModifier)};
  const QPointer<GridView> alive(this);
  enter([&] { tolmer::raise(grid_.MouseDown, *button); });
  if (alive && dragging_) enter([&] { grid_.press(cell, held); });
  const bool asksMenu = event->button() == Qt::RightButton && editGrid_ && isOverCells(place);
  if (alive && asksMenu) enter([&] { editGrid_->pressForMenu(cell); });
}

void GridView::mouseMoveEvent(QMouseEvent* event) {
  if (columnDrag_ && !dragging_ && columnDrag_->moveTo(event->position().toPoint())) return;
  if (!dragging_) {
    if (isOnFillCorner(event->position().toPoint())) viewport()->setCursor(Qt::CrossCursor);
    return;
  }
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
  enter([&] { filling_ ? editGrid_->fillTo(cellAt(place)) : grid_.dragTo(cellAt(place)); });
}

void GridView::timerEvent(QTimerEvent* event) {
  if (event->timerId() != dragTimer_.timerId()) return QAbstractScrollArea::timerEvent(event);
  if (isHidden()) return dragTimer_.stop();
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
  const auto button = modelButton(*event);
  if (!button) return;
  if (columnDrag_ && columnDrag_->release()) return;
  const QPoint place = event->position().toPoint();
  const bool clicked = event->button() == Qt::LeftButton && isOverCells(place);
  const CellPosition cell = cellAt(place);
  const bool fills = event->button() == Qt::LeftButton && filling_;
  if (event->button() == Qt::LeftButton) endDrag();
  if (fills) return enter([this] { editGrid_->endFill(); });
  const QPointer<GridView> alive(this);
  raiseMouseUp(*button);
  if (alive && clicked) enter([&] { grid_.click(cell); });
}

void GridView::endDrag() {
  dragging_ = filling_ = false;
  dragTimer_.stop();
}

// Before its first showing a view has no size to scroll in.
void GridView::showEvent(QShowEvent*) {
  if (grid_.selectionMode() != SelectionMode::none) bringIntoView(shown_.head());
  if (shownRow_ > 0) bringIntoView({shownRow_, 0});
}

void GridView::hideEvent(QHideEvent*) {
  if (filling_) enter([this] { editGrid_->cancelFill(); });
  endDrag();
}

void GridView::raiseMouseUp(MouseButton button) {
  enter([&] { tolmer::raise(grid_.MouseUp, button); });
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
  const QPoint place = event->position().toPoint();
  if (columnDrag_ && columnDrag_->doubleClick(place)) return;
  if (event->button() == Qt::LeftButton && isOnFillCorner(place))
    return enter([this] { editGrid_->fillBeside(); });
  if (event->button() == Qt::LeftButton && isOverCells(place))
    enter([&] { grid_.doubleClick(cellAt(place)); });
}

void GridView::focusInEvent(QFocusEvent* event) {
  focusByKey_ = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
  viewport()->update();
  if (editor_)
    enter([this] {
      if (editGrid_->editMode()) editor_->takeFocusBack();
    });
  // The widget's own focus event comes after this one and would hide the cell's.
  QTimer::singleShot(0, this, [this] { tellFocusedCell(); });
}

void GridView::focusOutEvent(QFocusEvent*) {
  focusByKey_ = false;
  viewport()->update();
}

void GridView::keyPressEvent(QKeyEvent* event) {
  const bool isMenuKey = event->key() == Qt::Key_Menu ||
                         (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier);
  if (isMenuKey) return openMenuAtCell();
  const bool isTable = grid_.selectionMode() == SelectionMode::none;
  // The first cell may be a frozen one, which is on the screen always: the rest comes back too.
  const bool toFirst = event->key() == Qt::Key_Home && event->modifiers() == Qt::ControlModifier;
  bool taken = (isTable || toFirst) && scrollByKey(event->key());
  enter([&] { taken = grid_.pressKey(toKeyPress(*event)) || taken; });
  if (!taken && editGrid_) typeKey(*event, taken);
  if (!taken) QAbstractScrollArea::keyPressEvent(event);
}

void GridView::openMenuAtCell() {
  if (grid_.selectionMode() == SelectionMode::none) return raiseMouseUp(MouseButton::right);
  const PopupPlace place(viewport()->mapToGlobal(cellRect(grid_.activeCell()).bottomLeft()));
  raiseMouseUp(MouseButton::right);
}

// In an edited grid Tab goes to the next cell.
bool GridView::focusNextPrevChild(bool next) {
  return !editGrid_ && QAbstractScrollArea::focusNextPrevChild(next);
}

void GridView::typeKey(const QKeyEvent& event, bool& taken) {
  const QString text = event.text();
  const bool isCommand =
      event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
  if (text.isEmpty() || isCommand || !(text[0].isPrint() || text[0].isSurrogate())) return;
  enter([&] {
    editGrid_->typeText(text.toStdString());
    taken = true;
  });
}

void GridView::keyReleaseEvent(QKeyEvent* event) {
  if (!editGrid_ || event->isAutoRepeat()) return QAbstractScrollArea::keyReleaseEvent(event);
  enter([&] { editGrid_->releaseKey(toKeyPress(*event)); });
}

// Composed letters begin an edit, too; what is composed then goes on in the line.
void GridView::inputMethodEvent(QInputMethodEvent* event) {
  if (!editor_ || (event->commitString().isEmpty() && event->preeditString().isEmpty()))
    return QAbstractScrollArea::inputMethodEvent(event);
  const QPointer<GridCellEditor> editor(editor_);
  enter([this] { editGrid_->typeText({}); });
  if (editor && !editor->isHidden()) QCoreApplication::sendEvent(editor, event);
}

QVariant GridView::inputMethodQuery(Qt::InputMethodQuery query) const {
  if (query == Qt::ImEnabled) return editGrid_ != nullptr;
  if (query == Qt::ImCursorRectangle && editGrid_ && !isHidden())
    return cellRect(grid_.activeCell()).translated(viewport()->pos());
  return QAbstractScrollArea::inputMethodQuery(query);
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

}  // namespace tolmer
