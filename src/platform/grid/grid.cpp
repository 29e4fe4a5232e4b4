#include "platform/grid/grid.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include "platform/grid/grid_keys.h"
#include "platform/text_metrics.h"

namespace tolmer {
namespace {

constexpr Twips standardWidth = pixels(64);
constexpr Twips standardHeight = pixels(23);

Twips upToWholePixels(double length) { return pixels(static_cast<float>(std::ceil(length))); }

Font cellFont(Font font, const Cell& cell) {
  font.bold = cell.isBold();
  return font;
}

}  // namespace

Grid::Grid(Container* parent, std::string name)
    : Control(parent, std::move(name)),
      colWidths_(1, standardWidth),
      rowHeights_(1, standardHeight) {
  setBackColour(colours::buttonFace);
}

void Grid::tell(Change what) {
  if (redrawLocks_ > 0)
    pending_ = pending_ | what;
  else
    notify(what);
}

void Grid::tellCells(const CellBlock& block) {
  const CellBlock& old = changedCells_;
  changedCells_ = old == noCells
                      ? block
                      : CellBlock{std::min(old.row, block.row), std::min(old.col, block.col),
                                  std::max(old.row2, block.row2), std::max(old.col2, block.col2)};
  tell(Change::content);
  if (redrawLocks_ == 0) changedCells_ = noCells;
}

void Grid::tellLayout() {
  axesAreStale_ = true;
  tell(Change::items);
}

void Grid::lockRedraw(int step) {
  redrawLocks_ += step;
  if (redrawLocks_ > 0 || pending_ == Change{}) return;
  notify(std::exchange(pending_, Change{}));
  changedCells_ = noCells;
}

void Grid::setSheet(Sheet sheet) {
  RedrawLock lock(*this);
  selection_.clear();
  remarks_.clear();
  litRows_.clear();
  wholeTexts_.clear();
  setSize(sheet.rows(), sheet.cols());
  sheet_ = std::move(sheet);
  tellCells({0, 0, maxRows(), maxCols()});
  tell(Change::value);
}

void Grid::setSize(int maxRows, int maxCols) {
  if (maxRows == sheet_.rows() && maxCols == sheet_.cols()) return;
  sheet_.resize(maxRows, maxCols);
  rowHeights_.resize(static_cast<std::size_t>(sheet_.rows()) + 1, standardHeight);
  colWidths_.resize(static_cast<std::size_t>(sheet_.cols()) + 1, standardWidth);
  selection_.setShape(selectionMode_, sheet_.rows(), sheet_.cols());
  tellLayout();
  tellCells({0, 0, sheet_.rows(), sheet_.cols()});
  tell(Change::value);
  reshaped();
}

void Grid::setText(int row, int col, std::string text) {
  Cell& cell = sheet_.at(row, col);
  cell.number.reset();
  cell.text = std::move(text);
  tellCells({row, col, row, col});
}

void Grid::setNumber(int row, int col, double number) {
  putNumber(sheet_.at(row, col), number);
  tellCells({row, col, row, col});
}

void Grid::setStyle(const CellBlock& block, const CellStyle& style) {
  sheet_.change(block, [&style](Cell& cell) {
    cell.style = style;
    if (cell.number) putNumber(cell, *cell.number);
  });
  tellCells(block);
}

void Grid::setRemarks(const std::vector<CellRemark>& remarks) {
  if (remarks.empty() && remarks_.empty()) return;
  remarks_.clear();
  for (const CellRemark& remark : remarks) {
    std::string& text = remarks_[{remark.cell.row, remark.cell.col}];
    text += (text.empty() ? "" : "\n") + remark.text;
  }
  tellCells(sheet_.body());
}

const std::string& Grid::wholeText(CellPosition cell) const {
  const auto found = std::ranges::find(wholeTexts_, cell, &CellRemark::cell);
  return found == wholeTexts_.end() ? text(cell.row, cell.col) : found->text;
}

std::string_view Grid::remarkOn(CellPosition cell) const {
  const auto found = remarks_.find({cell.row, cell.col});
  return found == remarks_.end() ? std::string_view() : found->second;
}

void Grid::light(std::vector<int> rows, int current) {
  const bool moves = current != currentRow_;
  if (!moves && rows == litRows_) return;
  RedrawLock lock(*this);
  std::vector<int> changed;
  std::set_symmetric_difference(rows.begin(), rows.end(), litRows_.begin(), litRows_.end(),
                                std::back_inserter(changed));
  litRows_ = std::move(rows);
  currentRow_ = current;
  // The frame around a row that stays lies elsewhere where its neighbour comes or goes.
  if (!changed.empty())
    tellCells(
        {std::max(changed.front() - 1, 0), 0, std::min(changed.back() + 1, maxRows()), maxCols()});
  if (moves) tell(Change::value);
}

bool Grid::isLit(int row) const {
  return std::binary_search(litRows_.begin(), litRows_.end(), row);
}

std::string Grid::tipOn(CellPosition cell) const {
  std::string tip;
  const auto add = [&tip](std::string_view line) {
    if (!line.empty()) tip.append(tip.empty() ? "" : "\n").append(line);
  };
  if (hasCell(cell) && wholeText(cell) != text(cell.row, cell.col)) add(wholeText(cell));
  add(remarkOn(cell));
  if (describeRow && hasCell(cell)) add(describeRow(cell.row));
  return tip;
}

void Grid::clear(const CellBlock& block) {
  sheet_.change(block, [](Cell& cell) { cell = Cell{}; });
  tellCells(block);
}

void Grid::setColWidth(int col, Twips width) {
  Twips& place = colWidths_[col];
  if (std::exchange(place, width) != width) tellLayout();
}

void Grid::setRowHeight(int row, Twips height) {
  Twips& place = rowHeights_[row];
  if (std::exchange(place, height) != height) tellLayout();
}

void Grid::showHeadings(bool row, bool col) {
  showsHeadingRow_ = row;
  showsHeadingCol_ = col;
  tellLayout();
}

void Grid::freeze(int rows, int cols) {
  frozenRows_ = rows;
  frozenCols_ = cols;
  tellLayout();
}

void Grid::setScrollBars(ScrollBars bars) {
  if (std::exchange(scrollBars_, bars) != bars) tell(Change::items);
}

const GridAxis& Grid::rowAxis() const {
  if (std::exchange(axesAreStale_, false)) {
    rowAxis_ = GridAxis(rowHeights_, showsHeadingRow_, frozenRows_);
    colAxis_ = GridAxis(colWidths_, showsHeadingCol_, frozenCols_);
  }
  return rowAxis_;
}

const GridAxis& Grid::colAxis() const {
  rowAxis();
  return colAxis_;
}

Size Grid::contentSize() const {
  return {pixels(static_cast<float>(colAxis().total())),
          pixels(static_cast<float>(rowAxis().total()))};
}

Twips Grid::widestText(int col) const {
  Twips widest = 0;
  for (int row = showsHeadingRow_ ? 0 : 1; row <= sheet_.rows(); ++row)
    widest = std::max(widest, widthOfText({row, col}));
  return widest;
}

Twips Grid::widthOfText(CellPosition at) const {
  const Cell& cell = sheet_.at(at.row, at.col);
  if (cell.text.empty()) return 0;
  return upToWholePixels(textWidth(cellFont(font(), cell), cell.text)) + 2 * sideMargin;
}

Twips Grid::tallestText(int row) const {
  double tallest = 0;
  for (int col = showsHeadingCol_ ? 0 : 1; col <= sheet_.cols(); ++col) {
    const Cell& cell = sheet_.at(row, col);
    if (!cell.text.empty()) tallest = std::max(tallest, lineHeight(cellFont(font(), cell)));
  }
  return tallest > 0 ? upToWholePixels(tallest) + 2 * upperMargin : 0;
}

template <class Work>
void Grid::changeSelection(Work work) {
  const GridSelection before = selection_;
  work();
  if (before == selection_) return;
  tell(Change::value);
  selectionChanged(before.active());
}

void Grid::selectionChanged(CellPosition) { raise(SelectionChange); }

void Grid::moveBy(CellPosition target, bool extends) {
  pressedHeading_ = {};
  changeSelection([&] {
    if (extends)
      selection_.extendTo(target);
    else
      selection_.moveTo(target);
  });
}

void Grid::setSelectionMode(SelectionMode mode) {
  if (mode == selectionMode_) return;
  selectionMode_ = mode;
  selection_.setShape(mode, sheet_.rows(), sheet_.cols());
  tell(Change::value);
}

bool Grid::hasCell(CellPosition cell) const {
  return sheet_.contains(cell) && cell.row > 0 && cell.col > 0;
}

void Grid::setActiveCell(CellPosition cell) {
  if (hasCell(cell)) changeSelection([&] { selection_.moveTo(cell); });
}

CellBlock Grid::inside(const CellBlock& block) const {
  return {std::max(block.row, 1), std::max(block.col, 1), std::min(block.row2, maxRows()),
          std::min(block.col2, maxCols())};
}

void Grid::select(const CellBlock& block) { select(std::vector{block}); }

void Grid::select(const std::vector<CellBlock>& blocks) {
  std::vector<CellBlock> taken;
  for (const CellBlock& block : blocks)
    if (const CellBlock part = inside(block); part.row <= part.row2 && part.col <= part.col2)
      taken.push_back(part);
  if (selectionMode_ == SelectionMode::none || taken.empty()) return;
  changeSelection([&] {
    selection_.clear();
    for (const CellBlock& block : taken) selection_.add(block);
  });
}

void Grid::unmarkBlocks() {
  changeSelection([&] { selection_.clear(); });
}

void Grid::press(CellPosition cell, ClickKeys held) {
  if (hasCell(cell)) raise(Press, cell, held);
  if (selectionMode_ == SelectionMode::none || !sheet_.contains(cell)) return;
  if (!hasCell(cell)) return pressHeading(cell, held);
  pressedHeading_ = {};
  if (held.control)
    changeSelection([&] { selection_.toggle(cell); });
  else
    moveBy(cell, held.shift);
}

void Grid::pressHeading(CellPosition heading, ClickKeys held) {
  const bool isRow = heading.row > 0;
  const bool goesOn = held.shift && (isRow ? pressedHeading_.row : pressedHeading_.col) > 0;
  if (!goesOn && held.shift)
    pressedHeading_ = isRow ? CellPosition{activeCell().row, 0} : CellPosition{0, activeCell().col};
  else if (!goesOn)
    pressedHeading_ = heading;
  if (!goesOn) {
    addsHeaded_ = held.control && selectionMode_ == SelectionMode::cells;
    // Its place, which takeHeaded fills.
    if (addsHeaded_ && !selection_.blocks().empty()) selection_.add(selection_.blocks().back());
  }
  takeHeaded(heading);
}

// The whole rows (columns) from the pressed heading to this one; all cells by the corner.
void Grid::takeHeaded(CellPosition heading) {
  const bool byRow = pressedHeading_.row > 0;
  const bool byCol = pressedHeading_.col > 0;
  const CellBlock span = blockBetween(pressedHeading_, heading);
  const CellBlock whole{byRow ? span.row : 1, byCol ? span.col : 1, byRow ? span.row2 : maxRows(),
                        byCol ? span.col2 : maxCols()};
  if (!addsHeaded_) return select(whole);
  changeSelection([&] { selection_.replaceLast(inside(whole)); });
}

void Grid::dragTo(CellPosition cell) {
  if (selectionMode_ == SelectionMode::none) return;
  if (pressedHeading_ != CellPosition{}) return takeHeaded(cell);
  if (!hasCell(cell) || cell == selection_.head()) return;
  moveBy(cell, true);
}

bool Grid::pressKey(const KeyPress& key) {
  if (selectionMode_ == SelectionMode::none || maxRows() == 0 || maxCols() == 0) return false;
  if (key.control && key.code == 'A') {
    select(sheet_.body());
    return true;
  }
  const std::optional<CellPosition> target = cellByKey(*this, key);
  if (!target) return false;
  moveBy(*target, key.shift);
  return true;
}

}  // namespace tolmer
