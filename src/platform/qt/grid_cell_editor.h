// The line in which the user types into a cell.
#pragma once

#include <QLineEdit>

#include "platform/grid/edit_grid.h"

namespace tolmer {

class GridView;

// Stands over the cell while the grid's edit is open and hands its text and keys to the grid; of
// itself it does only what moves within the text. Made with its view, hidden, so that the program's
// filter of keys and focus sees it from the start.
class GridCellEditor : public QLineEdit {
 public:
  GridCellEditor(GridView& view, EditGrid& grid);

  // After the grid has told that its edit changed.
  void follow();
  // After cells have moved on the screen.
  void stand();
  // The focus came to the grid while the edit was open.
  void takeFocusBack();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool focusNextPrevChild(bool) override { return false; }

 private:
  void open();
  void close();
  TextMark mark() const;
  void setMark(TextMark mark);

  GridView& view_;
  EditGrid& grid_;
};

}  // namespace tolmer
