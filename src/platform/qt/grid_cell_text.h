// The text of a cell, as assistive programs and test drivers read and change it.
#pragma once

#include <QAccessible>
#include <QPointer>

#include "platform/grid/grid.h"

namespace tolmer {

class GridView;

// The text is what a user would edit, all digits of a number or a formula; what is shown is the
// cell's name. A new text goes the way of a typed one and can be refused: so read the cell
// afterwards.
class AccessibleCellText : public QAccessibleTextInterface,
                           public QAccessibleEditableTextInterface {
 public:
  AccessibleCellText(GridView& view, CellPosition cell) : view_(&view), cell_(cell) {}

  bool canBeEdited() const;

  QString text(int startOffset, int endOffset) const override;
  int characterCount() const override;
  void selection(int, int* startOffset, int* endOffset) const override;
  int selectionCount() const override { return 0; }
  void addSelection(int, int) override {}
  void removeSelection(int) override {}
  void setSelection(int, int, int) override {}
  int cursorPosition() const override { return 0; }
  void setCursorPosition(int) override {}
  QRect characterRect(int) const override { return {}; }
  int offsetAtPoint(const QPoint&) const override { return -1; }
  void scrollToSubstring(int, int) override;
  QString attributes(int, int* startOffset, int* endOffset) const override;

  void deleteText(int startOffset, int endOffset) override;
  void insertText(int offset, const QString& text) override;
  void replaceText(int startOffset, int endOffset, const QString& text) override;

 private:
  QString content() const;

  QPointer<GridView> view_;
  CellPosition cell_;
};

}  // namespace tolmer
