#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QScrollBar>

#include "platform/qt/grid_cell_editor.h"
#include "platform/qt/grid_view.h"
#include "platform/qt/input_filter.h"
#include "platform/qt/menu_peer.h"

// Keys and input methods of a grid.
namespace tolmer {

void GridView::keyPressEvent(QKeyEvent* event) {
  const bool isMenuKey = event->key() == Qt::Key_Menu ||
                         (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier);
  if (isMenuKey) return openMenuAtCell();
  if (editGrid_ && leavesByKey(*event)) return;
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

// Tab goes to the next cell, so other keys have to lead out of the grid.
bool GridView::focusNextPrevChild(bool next) {
  return !editGrid_ && QAbstractScrollArea::focusNextPrevChild(next);
}

bool GridView::leavesByKey(const QKeyEvent& event) {
  const bool isTab = event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
  const bool leaves =
      event.modifiers().testFlag(Qt::ControlModifier) ? isTab : event.key() == Qt::Key_F6;
  const bool back = event.key() == Qt::Key_Backtab || event.modifiers().testFlag(Qt::ShiftModifier);
  return leaves && QAbstractScrollArea::focusNextPrevChild(!back);
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
