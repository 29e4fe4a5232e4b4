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

#include "platform/grid/grid_words.h"
#include "platform/qt/convert.h"
#include "platform/qt/grid_cell_editor.h"
#include "platform/qt/grid_view_accessible.h"
#include "platform/qt/grid_view_painter.h"
#include "platform/qt/input_filter.h"
#include "platform/qt/menu_peer.h"
#include "platform/qt/theme.h"

// Keys and input methods of a grid.

namespace tolmer {
namespace {

constexpr int cornerRoom = 7;  // that the fill corner takes, at most

Qt::ScrollBarPolicy policy(bool on) { return on ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff; }

PixelPoint toPoint(QPointF place) {
  const QPoint point = place.toPoint();
  return {point.x(), point.y()};
}

QRect toRect(const PixelBox& box) {
  return {box.left, box.top, box.right - box.left, box.bottom - box.top};
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
      sight_(grid),
      pointer_(sight_, grid, [this](const std::function<void()>& work) { enter(work); }) {
  installGridAccessibility();
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::StrongFocus);
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
  if (editGrid_) {
    setAttribute(Qt::WA_InputMethodEnabled);
    viewport()->setMouseTracking(true);
    editor_ = new GridCellEditor(*this, *editGrid_);
  }
  refresh(Change::all);
}

GridView::~GridView() = default;

void GridView::refresh(Change what) {
  const GridSelection before = sight_.selection();
  const int rowBefore = sight_.currentRow();
  sight_.follow(what, scaleOf(grid_));
  if (has(what, Change::tip)) {
    setAccessibleName(toQt(grid_.accessibleName()));
    setAccessibleDescription(toQt(grid_.accessibleDescription()));
  }
  if (has(what, Change::items | Change::look)) setScrollRanges();
  showScrolled();
  if (has(what, Change::items | Change::look))
    viewport()->update();
  else if (has(what, Change::content))
    viewport()->update(placeOf(grid_.changedCells()));
  if (before != sight_.selection()) repaintSelection(before);
  if (before != sight_.selection() || rowBefore != sight_.currentRow()) tellFocusedCell();
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
  const bool isOver = sight_.isOverCells(toPoint(help.pos()));
  const std::string remark = isOver ? grid_.tipOn(cell) : std::string();
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

// After the sight has moved.
void GridView::showScrolled() {
  const auto [x, y] = sight_.scrolled();
  horizontalScrollBar()->setValue(x);
  verticalScrollBar()->setValue(y);
}

QRect GridView::cellRect(CellPosition cell) const { return toRect(sight_.boxOf(cell)); }

QRect GridView::placeOf(const CellBlock& block) const {
  if (block.row > block.row2 || block.col > block.col2) return {};
  const Span rows = shownSpan(rowAxis(), block.row, block.row2, verticalScrollBar()->value());
  const Span cols = shownSpan(colAxis(), block.col, block.col2, horizontalScrollBar()->value());
  return {QPoint(cols.from, rows.from), QPoint(cols.to, rows.to)};
}

QRect GridView::partOf(CellPosition cell) const { return toRect(sight_.partOf(cell)); }

QRect GridView::fillCorner() const { return toRect(sight_.fillCorner()); }

QRect GridView::activePlace() const {
  return editor_ && !editor_->isHidden() ? editor_->geometry() : cellRect(grid_.activeCell());
}

bool GridView::holdsFocus() const { return hasFocus() || (editor_ && editor_->hasFocus()); }

void GridView::bringIntoView(CellPosition cell) {
  sight_.bringIntoView(cell);
  showScrolled();
}

// A plain move of the active cell repaints two cells; that is ten times faster than all of them.
void GridView::repaintSelection(const GridSelection& before) {
  const GridSelection& now = sight_.selection();
  const bool isPlain = before.blocks().empty() && now.blocks().empty();
  if (!isPlain || grid_.selectionMode() != SelectionMode::cells) return viewport()->update();
  repaintCell(before.active());
  repaintCell(now.active());
}

void GridView::repaintCell(CellPosition cell) {
  // The frame around the active cell lies on its lines, and its fill corner across them.
  viewport()->update(cellRect(cell).adjusted(-2, -2, cornerRoom, cornerRoom));
}

// What is pointed at and where a fill reaches is framed.
void GridView::showDrawnBlocks() {
  const auto pointed = editGrid_->pointed();
  const auto fill = editGrid_->fillTarget();
  if (pointed == shownPointed_ && fill == shownFill_) return;
  shownPointed_ = pointed;
  shownFill_ = fill;
  viewport()->update();
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
  if (isVisible()) sight_.setRoom(viewport()->width(), viewport()->height());
  setScrollRanges();
  showScrolled();
  if (editor_) editor_->stand();
}

// Copies what moves, so that only the cells that come up are painted.
void GridView::scrollContentsBy(int dx, int dy) {
  sight_.scrollTo({horizontalScrollBar()->value(), verticalScrollBar()->value()});
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

void GridView::mousePressEvent(QMouseEvent* event) {
  const ClickKeys held{event->modifiers().testFlag(Qt::ShiftModifier),
                       event->modifiers().testFlag(Qt::ControlModifier)};
  if (const auto button = modelButton(*event))
    pointer_.press(toPoint(event->position()), *button, held);
}

void GridView::mouseMoveEvent(QMouseEvent* event) {
  const PixelPoint place = toPoint(event->position());
  if (!pointer_.isDragging()) return showPointer(place);
  const QPointer<GridView> alive(this);
  pointer_.moveTo(place);
  if (!alive) return;
  if (!pointer_.isBeyond())
    dragTimer_.stop();
  else if (!dragTimer_.isActive())
    dragTimer_.start(GridPointer::tick, this);
}

void GridView::showPointer(PixelPoint place) {
  if (pointer_.isOnEdge(place))
    viewport()->setCursor(Qt::SplitHCursor);
  else if (pointer_.isOnCorner(place))
    viewport()->setCursor(Qt::CrossCursor);
  else
    viewport()->unsetCursor();
}

void GridView::timerEvent(QTimerEvent* event) {
  if (event->timerId() != dragTimer_.timerId()) return QAbstractScrollArea::timerEvent(event);
  if (isHidden() || !pointer_.isBeyond()) return dragTimer_.stop();
  const QPointer<GridView> alive(this);
  pointer_.scrollOn();
  if (alive) showScrolled();
}

void GridView::mouseReleaseEvent(QMouseEvent* event) {
  if (const auto button = modelButton(*event))
    pointer_.release(toPoint(event->position()), *button);
}

void GridView::showEvent(QShowEvent*) {
  sight_.setRoom(viewport()->width(), viewport()->height());
  showScrolled();
}

void GridView::hideEvent(QHideEvent*) {
  pointer_.giveUp();
  sight_.setRoom(0, 0);
}

void GridView::raiseMouseUp(MouseButton button) {
  enter([&] { tolmer::raise(grid_.MouseUp, button); });
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) pointer_.doubleClick(toPoint(event->position()));
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
  bool taken = sight_.scrollByKey(toKeyPress(*event));
  showScrolled();
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

}  // namespace tolmer
