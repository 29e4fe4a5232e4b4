#include "platform/qt/grid_cell_editor.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <algorithm>

#include "platform/grid/grid_words.h"
#include "platform/qt/convert.h"
#include "platform/qt/grid_view.h"
#include "platform/qt/input_filter.h"

namespace tolmer {
namespace {

constexpr int ownMargin = 2;   // that the toolkit leaves beside the text
constexpr int caretRoom = 12;  // behind the text, for the caret and the next letter

int bytesOf(const QString& text) { return static_cast<int>(text.toUtf8().size()); }

// A place in the bytes of the text as one in its letters.
int letters(const std::string& text, std::size_t bytes) {
  return static_cast<int>(toQt(text.substr(0, bytes)).size());
}

bool isRedoKey(const QKeyEvent& event) {
  return event.key() == Qt::Key_Y && event.modifiers() == Qt::ControlModifier;
}

}  // namespace

GridCellEditor::GridCellEditor(GridView& view, EditGrid& grid)
    : QLineEdit(view.viewport()), view_(view), grid_(grid) {
  setFrame(false);
  setFocusPolicy(Qt::ClickFocus);
  hide();
  connect(this, &QLineEdit::textEdited, this, [this](const QString& text) {
    view_.enter([&] { grid_.setEditText(text.toStdString(), mark()); });
  });
  const auto report = [this] {
    if (toQt(grid_.editText()) == text()) view_.enter([this] { grid_.reportEditMark(mark()); });
  };
  connect(this, &QLineEdit::cursorPositionChanged, this, report);
  connect(this, &QLineEdit::selectionChanged, this, [this, report] {
    // Where the mouse goes next, the mark is still meant.
    if (hasFocus()) report();
  });
}

TextMark GridCellEditor::mark() const {
  const int first = hasSelectedText() ? selectionStart() : cursorPosition();
  return {static_cast<std::size_t>(bytesOf(text().left(first))),
          static_cast<std::size_t>(bytesOf(selectedText()))};
}

void GridCellEditor::setMark(TextMark mark) {
  const std::string& text = grid_.editText();
  const int first = letters(text, mark.first);
  const int length = letters(text, mark.first + mark.length) - first;
  if (length > 0)
    setSelection(first, length);
  else
    setCursorPosition(first);
}

void GridCellEditor::follow() {
  if (!grid_.editMode()) return close();
  const bool opens = isHidden();
  // Setting the text that stands there would take its undo away.
  if (opens || text() != toQt(grid_.editText())) {
    const QSignalBlocker quiet(this);
    setText(toQt(grid_.editText()));
    setMark(grid_.editMark());
  }
  if (opens) open();
  stand();
}

void GridCellEditor::open() {
  QPalette colours = palette();
  const CellPosition cell = grid_.editCell();
  colours.setColor(QPalette::Base, toQt(grid_.sheet().at(cell.row, cell.col).style.back));
  setPalette(colours);
  setAccessibleName(toQt(describedCell(grid_, cell)));
  show();
  raise();
  setFocus(Qt::OtherFocusReason);
}

void GridCellEditor::close() {
  if (isHidden()) return;
  const bool hadFocus = hasFocus();
  // A hidden widget hands its focus on along the Tab chain.
  if (hadFocus) view_.setFocus(Qt::OtherFocusReason);
  view_.viewport()->update(geometry().adjusted(-2, -2, 2, 2));
  hide();
}

// As wide as its text needs, as far as there is room; cells in place hide what is scrolled below
// them.
void GridCellEditor::stand() {
  if (isHidden()) return;
  const int textMargin = toPixel(Grid::sideMargin, view_.scale()) - ownMargin;
  setTextMargins(textMargin, 0, textMargin, 0);
  setFont(toQt(grid_.font(), view_.scale()));
  const QRect room = view_.viewport()->rect();
  QRect place = view_.cellRect(grid_.editCell());
  const int needed = fontMetrics().horizontalAdvance(text()) + 2 * (textMargin + ownMargin);
  place.setRight(std::clamp(place.left() + needed + caretRoom, place.right(),
                            std::max(room.right(), place.right())));
  if (place != geometry()) {
    view_.viewport()->update((geometry() | place).adjusted(-2, -2, 2, 2));
    setGeometry(place);
  }
  const QRect seen = view_.partOf(grid_.editCell()) & place;
  if (seen == place)
    clearMask();
  else
    setMask(seen.isEmpty() ? QRegion(-1, -1, 1, 1) : QRegion(seen.translated(-place.topLeft())));
}

void GridCellEditor::takeFocusBack() {
  if (!isHidden() && !hasFocus()) setFocus(Qt::OtherFocusReason);
}

// The toolkit has this key for redoing on some systems only; elsewhere a menu would take it.
bool GridCellEditor::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride &&
      isRedoKey(static_cast<const QKeyEvent&>(*event))) {
    event->accept();
    return true;
  }
  return QLineEdit::event(event);
}

void GridCellEditor::keyPressEvent(QKeyEvent* event) {
  if (isRedoKey(*event)) return redo();
  bool taken = false;
  const QPointer<GridCellEditor> alive(this);
  view_.enter([&] { taken = grid_.pressKey(toKeyPress(*event)); });
  if (alive && !taken) QLineEdit::keyPressEvent(event);
}

void GridCellEditor::keyReleaseEvent(QKeyEvent* event) {
  QLineEdit::keyReleaseEvent(event);
  event->accept();
  if (!event->isAutoRepeat()) view_.enter([&] { grid_.releaseKey(toKeyPress(*event)); });
}

void GridCellEditor::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  // Another program's window, or a box of ours, is no end of typing; and on another cell the mouse
  // decides for itself.
  const bool comesBack = event->reason() == Qt::ActiveWindowFocusReason;
  if (isHidden() || comesBack || QApplication::focusWidget() == &view_) return;
  view_.enter([this] { grid_.commitEdit(); });
}

}  // namespace tolmer
