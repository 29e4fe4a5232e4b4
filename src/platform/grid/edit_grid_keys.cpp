// What keys do in a grid in which the user types.
#include <optional>

#include "platform/grid/edit_grid.h"
#include "platform/grid/grid_keys.h"

namespace tolmer {
namespace {

std::optional<GridCommand> commandOf(const KeyPress& key) {
  if (key.code == keys::deleteKey && !key.control && !key.shift) return GridCommand::erase;
  if (!key.control) return std::nullopt;
  if (key.code == 'X') return GridCommand::cut;
  if (key.code == 'C') return GridCommand::copy;
  if (key.code == 'V') return GridCommand::paste;
  if (key.code == 'Y') return GridCommand::redo;
  if (key.code == 'Z') return key.shift ? GridCommand::redo : GridCommand::undo;
  return std::nullopt;
}

bool isEntryKey(const KeyPress& key) {
  return (key.code == keys::enter || key.code == keys::tab) && !key.control && !key.alt;
}

}  // namespace

bool EditGrid::pressKey(const KeyPress& key) {
  if (key.alt || maxRows() == 0 || maxCols() == 0) return false;
  return editing_ ? pressEditKey(key) : pressCellKey(key);
}

bool EditGrid::pressEditKey(const KeyPress& key) {
  const Life life = life_;
  if (key.code == keys::escape) {
    cancelEdit();
    if (!life.expired()) raise(EditGivenUp);
    return true;
  }
  if (key.code == keys::f2) {
    keys_ = keys_ == Keys::move ? Keys::stay : Keys::move;
    return true;
  }
  if (keys_ == Keys::move && pointByKey(key)) return true;
  if (isEntryKey(key)) {
    commitAndMove(key);
    return true;
  }
  if (keys_ == Keys::move && !key.shift && cellBy(key, activeCell())) {
    commitAndMove(key);
    return true;
  }
  // In one line these lead nowhere.
  return key.code == keys::up || key.code == keys::down || key.code == keys::pageUp ||
         key.code == keys::pageDown;
}

void EditGrid::commitAndMove(const KeyPress& key) {
  const Life life = life_;
  if (commitEdit() && !life.expired()) pressCellKey(key);
}

std::optional<CellPosition> EditGrid::cellBy(const KeyPress& key, CellPosition from) const {
  if (key.code == keys::home && key.control && !key.alt && hasCell(firstDataCell_))
    return firstDataCell_;
  return cellByEditKey(*this, key, from);
}

bool EditGrid::pressCellKey(const KeyPress& key) {
  if (key.code == keys::escape && fillTarget_) {
    cancelFill();
    return true;
  }
  if (const auto command = commandOf(key)) {
    raise(Command, *command);
    return true;
  }
  if (key.code == keys::space && key.control != key.shift) {
    selectLine(key.shift);
    return true;
  }
  if (isEntryKey(key)) {
    moveByEntry(key);
    return true;
  }
  if (key.code == keys::f2 || key.code == keys::backspace) {
    startEdit();
    if (key.code == keys::backspace && editing_) open(editCell_, {}, Keys::move);
    return true;
  }
  const auto target = cellBy(key, key.shift ? selection().head() : activeCell());
  if (!target) return Grid::pressKey(key);
  moveBy(*target, key.shift);
  return true;
}

// Return goes down to the column in which a row of Tabs began, so that cases are typed in row by
// row.
void EditGrid::moveByEntry(const KeyPress& key) {
  const bool isTab = key.code == keys::tab;
  const int code =
      isTab ? (key.shift ? keys::left : keys::right) : (key.shift ? keys::up : keys::down);
  CellPosition target = *cellByKey(*this, {.code = code});
  const int from = tabbedFrom_ > 0 ? tabbedFrom_ : activeCell().col;
  if (!isTab && tabbedFrom_ > 0) target.col = tabbedFrom_;
  const Life life = life_;
  movesByEntry_ = true;
  moveBy(target, false);
  if (life.expired()) return;
  movesByEntry_ = false;
  tabbedFrom_ = isTab ? from : 0;
}

void EditGrid::selectLine(bool row) {
  const CellPosition at = activeCell();
  select(row ? CellBlock{at.row, 1, at.row, maxCols()} : CellBlock{1, at.col, maxRows(), at.col});
}

}  // namespace tolmer
