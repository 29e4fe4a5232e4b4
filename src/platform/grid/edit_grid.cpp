#include "platform/grid/edit_grid.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "platform/grid/grid_keys.h"
#include "platform/window.h"

namespace tolmer {
namespace {

constexpr Twips narrowest = pixels(16);

std::string oneLine(std::string_view text) {
  std::string line(text);
  std::replace_if(
      line.begin(), line.end(), [](char c) { return c == '\n' || c == '\t'; }, ' ');
  std::erase(line, '\r');
  return line;
}

}  // namespace

EditGrid::EditGrid(Container* parent, std::string name) : Grid(parent, std::move(name)) {
  for (const bool back : {false, true}) {
    const auto leave = [this, back] {
      if (Window* owner = window()) owner->moveFocus(back);
    };
    const Held shift = back ? Held::yes : Held::no;
    takeKey({keys::f6, shift, Held::no}, leave);
    takeKey({keys::tab, shift, Held::yes}, leave);
  }
}

// --- the open edit

bool EditGrid::canEdit(CellPosition cell) const {
  return hasCell(cell) && sheet().at(cell.row, cell.col).style.type != CellType::fixed;
}

std::string EditGrid::contentOf(CellPosition cell) const {
  std::string content = text(cell.row, cell.col);
  raise(AskContent, cell, content);
  return content;
}

void EditGrid::open(CellPosition cell, std::string text, Keys keysThen, bool marked) {
  editCell_ = cell;
  editText_ = std::move(text);
  mark_ = marked ? TextMark{0, editText_.size()} : TextMark{editText_.size(), 0};
  keys_ = keysThen;
  editing_ = true;
  pointed_.reset();
  tell(Change::text);
  raise(EditChanged);
}

void EditGrid::close() {
  editing_ = false;
  pointed_.reset();
  tell(Change::text);
  raise(EditChanged);
}

void EditGrid::setEditText(std::string_view text, TextMark mark) {
  if (!editing_) return;
  editText_ = oneLine(text);
  mark_.first = std::min(mark.first, editText_.size());
  mark_.length = std::min(mark.length, editText_.size() - mark_.first);
  pointed_.reset();
  tell(Change::text);
  raise(EditChanged);
}

void EditGrid::reportEditMark(TextMark mark) {
  if (!editing_ || mark == mark_) return;
  mark_ = mark;
  if (!pointed_) return;
  pointed_.reset();
  tell(Change::text);
}

void EditGrid::startEdit() { startEdit(false); }

void EditGrid::startEdit(bool marked) {
  if (editing_ || !canEdit(activeCell())) return;
  contentBefore_ = contentOf(activeCell());
  open(activeCell(), oneLine(contentBefore_), Keys::stay, marked);
}

void EditGrid::typeText(std::string_view text) {
  if (editing_) {
    std::string typed = editText_;
    typed.replace(mark_.first, mark_.length, text);
    return setEditText(typed, {mark_.first + text.size(), 0});
  }
  if (!canEdit(activeCell())) return;
  contentBefore_ = contentOf(activeCell());
  open(activeCell(), oneLine((replaces_ ? std::string() : contentBefore_) + std::string(text)),
       Keys::move);
}

// While it lives the owner is being asked, also if that ends by an exception.
class EditGrid::Asking {
 public:
  explicit Asking(EditGrid& grid) : grid_(grid), life_(grid.life_) { grid_.asking_ = true; }
  ~Asking() {
    if (gridIsThere()) grid_.asking_ = false;
  }
  Asking(const Asking&) = delete;
  Asking& operator=(const Asking&) = delete;
  bool gridIsThere() const { return !life_.expired(); }

 private:
  EditGrid& grid_;
  Life life_;
};

bool EditGrid::enter(CellPosition cell, const std::string& text) {
  bool accepted = false;
  if (canEdit(cell)) raise(EditDone, cell, text, accepted);
  return accepted;
}

bool EditGrid::commitEdit() {
  if (!editing_) return true;
  const Life life = life_;
  // A box that tells the reason may take the focus, which would commit again.
  if (asking_) return false;
  if (editText_ != contentBefore_) {
    const Asking asking(*this);
    const bool accepted = enter(editCell_, std::string(editText_));
    if (!asking.gridIsThere()) return accepted;
    if (!accepted) return !editing_;
    close();
  } else {
    close();
    if (!life.expired()) raise(EditGivenUp);
  }
  return true;
}

void EditGrid::cancelEdit() {
  if (editing_) close();
}

void EditGrid::reshaped() {
  if (!canEdit(editCell_)) cancelEdit();
}

// --- the user

void EditGrid::press(CellPosition cell, ClickKeys held) {
  if (hasCell(cell) && canPoint()) return pointTo(cell, held.shift && pointed_);
  const Life life = life_;
  if (!commitEdit() || life.expired()) return;
  Grid::press(cell, held);
}

void EditGrid::dragTo(CellPosition cell) {
  if (!editing_) return Grid::dragTo(cell);
  if (pointed_ && hasCell(cell) && cell != pointed_->head) pointTo(cell, true);
}

// A name is typed anew more often than mended.
void EditGrid::doubleClick(CellPosition cell) {
  const Life life = life_;
  Grid::doubleClick(cell);
  if (!life.expired() && cell == activeCell())
    startEdit(sheet().at(cell.row, cell.col).style.heading);
}

void EditGrid::pressForMenu(CellPosition cell) {
  const Life life = life_;
  if (!commitEdit() || life.expired() || !sheet().contains(cell)) return;
  const bool isRow = cell.col == 0, isCol = cell.row == 0;
  const bool isSelected = selection().covers({isCol ? 1 : cell.row, isRow ? 1 : cell.col}) &&
                          (!isRow || selection().covers({cell.row, maxCols()})) &&
                          (!isCol || selection().covers({maxRows(), cell.col}));
  if (!isSelected) Grid::press(cell);
}

void EditGrid::setColumnTags(std::vector<std::string> tags) {
  if (tags == columnTags_) return;
  columnTags_ = std::move(tags);
  tell(Change::look);
}

void EditGrid::dragColWidth(int col, Twips width) {
  setColWidth(col, std::max(width, narrowest));
  raise(ColWidthChange, col);
}

void EditGrid::selectionChanged(CellPosition activeBefore) {
  const Life life = life_;
  if (!movesByEntry_) tabbedFrom_ = 0;
  if (activeBefore != activeCell()) {
    commitEdit();
    if (!life.expired()) raise(LeaveCell, activeBefore, CellPosition(activeCell()));
    if (life.expired()) return;
  }
  Grid::selectionChanged(activeBefore);
}

// --- pointing

bool EditGrid::canPoint() const {
  if (!editing_ || asking_) return false;
  bool can = pointed_.has_value();
  if (!can)
    raise(AskPointing, editText_.substr(0, mark_.first),
          editText_.substr(mark_.first + mark_.length), can);
  return can;
}

std::optional<CellBlock> EditGrid::pointed() const {
  if (!pointed_) return std::nullopt;
  return blockBetween(pointed_->anchor, pointed_->head);
}

bool EditGrid::pointByKey(const KeyPress& key) {
  const auto target = cellBy(key, pointed_ ? pointed_->head : editCell_);
  if (!target || !canPoint()) return false;
  pointTo(*target, key.shift && pointed_);
  return true;
}

void EditGrid::pointTo(CellPosition cell, bool extends) {
  Pointed next = pointed_.value_or(Pointed{mark_.first, mark_.length, cell, cell});
  next.head = cell;
  if (!extends) next.anchor = cell;
  std::string address;
  raise(AskAddress, blockBetween(next.anchor, next.head), address);
  if (address.empty()) return;
  editText_.replace(next.begin, next.length, address);
  next.length = address.size();
  mark_ = {next.begin + next.length, 0};
  pointed_ = next;
  tell(Change::text);
  raise(EditChanged);
}

// --- filling

std::optional<CellBlock> EditGrid::fillSource() const {
  const auto& blocks = selection().blocks();
  if (!fills_ || editing_ || blocks.size() > 1 || !hasCell(activeCell())) return std::nullopt;
  const CellPosition at = activeCell();
  const CellBlock block = blocks.empty() ? CellBlock{at.row, at.col, at.row, at.col} : blocks[0];
  if (block.row < firstDataCell_.row || (block.row2 == maxRows() && block.col2 == maxCols()))
    return std::nullopt;
  return block;
}

void EditGrid::startFill() {
  fillTarget_ = fillSource();
  tell(Change::text);
}

// Over rows or over columns, whichever way the cell is farther off.
void EditGrid::fillTo(CellPosition cell) {
  const auto from = fillSource();
  if (!fillTarget_ || !from) return;
  cell.row = std::clamp(cell.row, firstDataCell_.row, maxRows());
  cell.col = std::clamp(cell.col, 1, maxCols());
  const int down = std::max({cell.row - from->row2, from->row - cell.row, 0});
  const int across = std::max({cell.col - from->col2, from->col - cell.col, 0});
  CellBlock target = *from;
  if (down >= across) {
    target.row = std::min(target.row, cell.row);
    target.row2 = std::max(target.row2, cell.row);
  } else {
    target.col = std::min(target.col, cell.col);
    target.col2 = std::max(target.col2, cell.col);
  }
  if (fillTarget_ == target) return;
  fillTarget_ = target;
  tell(Change::text);
}

void EditGrid::endFill() {
  const auto from = fillSource();
  const auto to = fillTarget_;
  cancelFill();
  if (from && to && *from != *to) raise(Fill, *from, *to);
}

void EditGrid::cancelFill() {
  if (!fillTarget_) return;
  fillTarget_.reset();
  tell(Change::text);
}

void EditGrid::fillBeside() {
  const auto from = fillSource();
  if (!from) return;
  for (const int col : {from->col - 1, from->col2 + 1}) {
    int row = from->row2;
    while (col >= 1 && col <= maxCols() && row < maxRows() && !text(row + 1, col).empty()) ++row;
    if (row > from->row2)
      return raise(Fill, *from, CellBlock{from->row, from->col, row, from->col2});
  }
}

}  // namespace tolmer
