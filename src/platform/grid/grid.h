// The grid control.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/control.h"
#include "platform/grid/grid_axis.h"
#include "platform/grid/grid_selection.h"
#include "platform/grid/sheet.h"

namespace tolmer {

enum class ScrollBars { none, horizontal, vertical, both };

// What is to be known of a cell beside its content.
struct CellRemark {
  CellPosition cell;
  std::string text;
};

// A sheet on the screen. Rows and columns count from 1, row 0 and column 0 are headings that are
// hidden at first; sizes are twips, shown in whole pixels. Cells outside the sheet are a fault of
// the caller where one is asked for, and left aside where a block reaches beyond.
class Grid : public Control {
 public:
  Grid(Container* parent, std::string name);
  ~Grid() override { setPeer(nullptr); }
  ControlKind kind() const override { return ControlKind::grid; }
  bool takesFocus() const override { return true; }

  // --- content
  const Sheet& sheet() const { return sheet_; }
  int maxRows() const { return sheet_.rows(); }
  int maxCols() const { return sheet_.cols(); }
  const std::string& text(int row, int col) const { return sheet_.at(row, col).text; }
  // All cells at once, without remarks. Rows and columns that stay keep their sizes. Blocks are
  // unmarked, without an event.
  void setSheet(Sheet sheet);
  void setSize(int maxRows, int maxCols);
  void setText(int row, int col, std::string text);
  void setNumber(int row, int col, double number);
  void setStyle(const CellBlock& block, const CellStyle& style);
  // In place of all before, several on one cell below one another. Such a cell has a small mark in
  // its corner, and tells the text to a pointer that rests on it and to those who hear it.
  void setRemarks(const std::vector<CellRemark>& remarks);
  // Empty where there is none.
  std::string_view remarkOn(CellPosition cell) const;
  // Rows that stand out: bold and framed, beside whatever is selected. In rising order, until the
  // sheet is set anew; the current one, 0 for none, comes into sight and is where a screen reader
  // finds the focus in a table without a selection.
  void light(std::vector<int> rows, int current);
  const std::vector<int>& litRows() const { return litRows_; }
  bool isLit(int row) const;
  int currentRow() const { return currentRow_; }
  // What a pointer that rests on the cell is told: its remark, and what `describeRow` says.
  std::string tipOn(CellPosition cell) const;
  std::function<std::string(int row)> describeRow;
  // What a cell is, to those who hear it, in place of its headings; empty where these say it.
  std::function<std::string(CellPosition)> describeCell;
  // Of cells that show the beginning of a text alone: as above, in place of what they show.
  void setWholeTexts(std::vector<CellRemark> texts) { wholeTexts_ = std::move(texts); }
  // What the cell shows, whole.
  const std::string& wholeText(CellPosition cell) const;
  // Content and style.
  void clear(const CellBlock& block);
  // While the peer is told of Change::content: the cells to which it has happened, and some between
  // them.
  const CellBlock& changedCells() const { return changedCells_; }

  // --- layout
  Twips colWidth(int col) const { return colWidths_[col]; }
  Twips rowHeight(int row) const { return rowHeights_[row]; }
  void setColWidth(int col, Twips width);
  void setRowHeight(int row, Twips height);
  void showHeadings(bool row, bool col);
  // So many rows and columns stay in place when the others are scrolled.
  void freeze(int rows, int cols);
  ScrollBars scrollBars() const { return scrollBars_; }
  void setScrollBars(ScrollBars bars);
  const GridAxis& rowAxis() const;
  const GridAxis& colAxis() const;
  // What all cells and shown headings take, lines included.
  Size contentSize() const;

  // What the widest text of a column and the tallest of a row need, with the margin that keeps text
  // off the lines; 0 where there is no text.
  Twips widestText(int col) const;
  Twips widthOfText(CellPosition cell) const;
  Twips tallestText(int row) const;
  static constexpr Twips sideMargin = pixels(6);   // left and right of a text, each
  static constexpr Twips upperMargin = pixels(2);  // above and below

  // --- selection
  const GridSelection& selection() const { return selection_; }
  SelectionMode selectionMode() const { return selectionMode_; }
  void setSelectionMode(SelectionMode mode);
  CellPosition activeCell() const { return selection_.active(); }
  void setActiveCell(CellPosition cell);
  void select(const CellBlock& block);
  // Several blocks, the first cell of the last one active.
  void select(const std::vector<CellBlock>& blocks);
  void unmarkBlocks();

  // --- the user, told by the front end; each raises SelectionChange where something changed
  // A press of the left button: with Shift up to this cell, with Control this one too. On a heading
  // it takes the whole row or column, with Control that one too, and a drag or Shift from there
  // several of them.
  virtual void press(CellPosition cell, ClickKeys held = {});
  virtual void dragTo(CellPosition cell);
  // The release over a cell, or a second click on it.
  void click(CellPosition cell) { raise(Click, cell); }
  virtual void doubleClick(CellPosition cell) { raise(DblClick, cell); }
  // Arrows, Home, End and Page keys, with Shift to mark and with Control to the ends; Control+A.
  // Whether the key meant anything here.
  virtual bool pressKey(const KeyPress& key);

  // A press of the left button on a cell, before it selects anything.
  Event<CellPosition, ClickKeys> Press;
  Event<CellPosition> Click;
  Event<CellPosition> DblClick;
  Event<> SelectionChange;

 protected:
  bool hasCell(CellPosition cell) const;  // headings beside the cells are none
  // With Shift the blocks grow up to there.
  void moveBy(CellPosition target, bool extends);
  void tell(Change what);
  // The last word of every change of the selection: raises its event.
  virtual void selectionChanged(CellPosition activeBefore);
  // Rows or columns have come or gone.
  virtual void reshaped() {}

 private:
  static constexpr CellBlock noCells{.row = 0, .col = 0, .row2 = -1, .col2 = -1};
  friend class RedrawLock;
  void tellLayout();
  void tellCells(const CellBlock& block);
  void pressHeading(CellPosition heading, ClickKeys held);
  void takeHeaded(CellPosition heading);
  void lockRedraw(int step);
  CellBlock inside(const CellBlock& block) const;
  template <class Work>
  void changeSelection(Work work);

  Sheet sheet_;
  std::map<std::pair<int, int>, std::string> remarks_;  // few cells have one
  std::vector<int> litRows_;
  int currentRow_ = 0;
  std::vector<CellRemark> wholeTexts_;
  std::vector<Twips> colWidths_;
  std::vector<Twips> rowHeights_;
  mutable GridAxis rowAxis_;
  mutable GridAxis colAxis_;
  mutable bool axesAreStale_ = true;
  GridSelection selection_;
  CellPosition pressedHeading_;  // the one where a drag or Shift goes on from
  bool addsHeaded_ = false;      // its rows or columns stand beside other blocks
  SelectionMode selectionMode_ = SelectionMode::cells;
  ScrollBars scrollBars_ = ScrollBars::none;
  int frozenRows_ = 0;
  int frozenCols_ = 0;
  bool showsHeadingRow_ = false;
  bool showsHeadingCol_ = false;
  int redrawLocks_ = 0;
  Change pending_{};
  CellBlock changedCells_ = noCells;
};

// While it lives the peer is told nothing; at its end, all at once.
class RedrawLock {
 public:
  explicit RedrawLock(Grid& grid) : grid_(grid) { grid_.lockRedraw(1); }
  ~RedrawLock() { grid_.lockRedraw(-1); }
  RedrawLock(const RedrawLock&) = delete;
  RedrawLock& operator=(const RedrawLock&) = delete;

 private:
  Grid& grid_;
};

}  // namespace tolmer
