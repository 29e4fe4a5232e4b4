#include "editor/sheet_window.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <utility>

#include "editor/dialog_parts.h"
#include "editor/formula_pointing.h"
#include "editor/import_dialog.h"
#include "editor/variable_label.h"
#include "platform/desktop.h"
#include "platform/grid/grid_copy.h"
#include "system/host_path.h"

namespace tolmer {
namespace {

constexpr Colour headingGround = Colour::rgb(255, 255, 128);
constexpr Twips numberWidth = pixels(44);  // of the observations' numbers
constexpr Twips rowHeight = pixels(20);
constexpr Twips labelWidth = pixels(110);
constexpr Twips columnWidth = pixels(84);
constexpr Twips widestByItself = pixels(240);
constexpr std::size_t alwaysFits = 8;  // digits, signs and points in a column of the first width

constexpr int manyVariables = 6;  // from here on, not all of them are in sight
// On larger screens two thirds of the width and three quarters of the height.
constexpr Size least = {pixels(880), pixels(600)};
constexpr Twips gap = pixels(10);
constexpr Twips lineHeight = pixels(24);
constexpr Twips buttonHeight = pixels(30);
constexpr Twips buttonWidth = pixels(92);

// Room for all columns of a few variables, but at least for the buttons.
Twips widthOf(int variables) {
  const Twips columns = numberWidth + labelWidth + columnWidth * static_cast<Twips>(variables);
  return std::max(columns + 2 * gap + pixels(30), pixels(640));
}

CellStyle styleOf(int row, int col) {
  CellStyle style{.type = CellType::text, .align = col == 1 ? Align::left : Align::right};
  if (row == 1) style.back = headingGround;
  style.heading = row == 1;
  return style;
}

// Marks cells on the clipboard as those that were copied last in this program.
std::string markOf(int copies) { return "cells " + std::to_string(copies); }

}  // namespace

SheetWindow::SheetWindow(Desktop& desktop)
    : Window(desktop, "frmDataEditor", WindowStyle::dialog, "Data Editor") {
  setLeastInner({pixels(480), pixels(240)});
  wireGrid();
}

void SheetWindow::wireGrid() {
  spdData.AskContent = [this](CellPosition cell, std::string& text) {
    text = sheet_.editText(cell.row - 1, cell.col - 1);
  };
  spdData.EditDone = [this](CellPosition cell, const std::string& text, bool& bAccepted) {
    spdData_EditDone(cell, text, bAccepted);
  };
  spdData.describeCell = [](CellPosition cell) {
    if (cell.row > 1) return std::string();
    return cell.col == 1 ? std::string("Name of the labels")
                         : "Name of variable " + std::to_string(cell.col - 1);
  };
  spdData.EditGivenUp = [this] { forgetMessages(); };
  spdData.LeaveCell = [this](CellPosition cell, CellPosition) {
    if (cell != told_.cell) told_ = {};
    forgetMessages();
  };
  spdData.SelectionChange = [this] { forgetMessages(); };
  spdData.ColWidthChange = [this](int col) { drawnColumns_.insert(col); };
  spdData.Command = [this](GridCommand what) { command(what); };
  spdData.EditChanged = [this] { spdData_EditChanged(); };
  spdData.AskPointing = [this](const std::string& before, const std::string& behind, bool& bCan) {
    bCan = typesFormula() && takesAddress(before, behind, sheet_.names());
  };
  spdData.AskAddress = [this](const CellBlock& block, std::string& address) {
    address = addressOf(rangeOf(block), sheet_.names());
  };
  spdData.Fill = [this](const CellBlock& from, const CellBlock& to) {
    fill(rangeOf(from), rangeOf(to));
  };
  spdData.MouseUp = [this](MouseButton button) {
    if (button == MouseButton::right) openCellMenu();
  };
}

void SheetWindow::InitialiseGrid() {
  const RedrawLock lock(spdData);
  spdData.setSize(sheet_.observations() + 1, sheet_.variables() + 1);
  for (int row = 1; row <= spdData.maxRows(); ++row) {
    spdData.setRowHeight(row, rowHeight);
    spdData.setText(row, 0, row == 1 ? std::string("Obs") : std::to_string(row - 1));
    for (int col = 1; col <= spdData.maxCols(); ++col)
      spdData.setStyle({row, col, row, col}, styleOf(row, col));
  }
  spdData.showHeadings(false, true);
  const bool isSmall = sheet_.variables() < manyVariables;
  spdData.setFirstDataCell({2, 2});
  spdData.setFills(true);
  spdData.freeze(1, isSmall ? spdData.maxCols() : 1);
  spdData.setScrollBars(isSmall ? ScrollBars::vertical : ScrollBars::both);
  resetGrid();
  const Size screen = desktop().screenSize();
  const Twips width =
      isSmall ? widthOf(sheet_.variables()) : std::max(least.width, screen.width * 2 / 3);
  setPlace({0, 0, std::min(width, screen.width - pixels(20)),
            std::min(std::max(least.height, screen.height * 3 / 4), screen.height - pixels(80))});
  placeControls();
  centreOnScreen();
  showAll();
}

// What every data set begins with, whatever the one before it was given.
void SheetWindow::resetGrid() {
  drawnColumns_.clear();
  spdData.setColWidth(0, numberWidth);
  for (int col = 1; col <= spdData.maxCols(); ++col) {
    spdData.setColWidth(col, col == 1 ? labelWidth : columnWidth);
    for (int row = 2; row <= spdData.maxRows(); ++row) widenFor({row, col});
  }
  spdData.setEditModeReplace(true);
  menu.mnuEditTypingReplaces.setChecked(true);
  spdData.setActiveCell({2, 1});
}

void SheetWindow::placeControls() {
  const Twips width = innerWidth();
  const Twips height = innerHeight();
  lblTitle.setPlace({gap, gap, pixels(40), lineHeight});
  txtTitle.setPlace({lblTitle.right(), gap, width - lblTitle.right() - gap, lineHeight});
  const Twips buttonTop = height - gap - buttonHeight;
  const Twips statusTop = buttonTop - gap / 2 - lineHeight;
  lblStatus.setPlace({gap, statusTop, width - 2 * gap, lineHeight});
  const Twips gridTop = txtTitle.bottom() + gap;
  spdData.setPlace({gap, gridTop, width - 2 * gap, statusTop - gap / 2 - gridTop});
  Twips right = width - gap;
  for (Button* button : {&cmdCancel, &cmdOK, &cmdSave, &cmdOpen}) {
    button->setPlace({right - buttonWidth, buttonTop, buttonWidth, buttonHeight});
    right = button->left() - gap;
  }
  Label1.setPlace({gap, buttonTop + pixels(6), right - gap, lineHeight});
  txtHelp.setPlace(spdData.place());
  cmdClose.setPlace({width - gap - buttonWidth, statusTop, buttonWidth, lineHeight});
}

void SheetWindow::follow(const SheetChange& change) {
  {
    const RedrawLock lock(spdData);
    if (change.all) showAll();
    for (const CellAddress& cell : change.cells) showCell(cell.row, cell.column);
    for (const int column : change.decimals) showColumn(column);
  }
  if (change.title) txtTitle.setText(sheet_.title());
  if (change.file) showCaption();
  told_ = {};
  forgetMessages();
}

void SheetWindow::showCell(int row, int col) {
  spdData.setText(row + 1, col + 1, sheet_.shownText(row, col));
  if (row > 0) widenFor({row + 1, col + 1});
}

// A number is not left to be read as "###" where its column can be wider, unless the user has drawn
// the column.
void SheetWindow::widenFor(CellPosition cell) {
  const bool isLong = cell.col > 1 && spdData.text(cell.row, cell.col).size() > alwaysFits;
  if (!isLong || drawnColumns_.contains(cell.col) || !sheet_.value(cell.row - 1, cell.col - 1))
    return;
  const Twips needed = std::min(spdData.widthOfText(cell), widestByItself);
  if (needed > spdData.colWidth(cell.col)) spdData.setColWidth(cell.col, needed);
}

void SheetWindow::showColumn(int col) {
  if (col < 1) return;
  for (int row = 0; row <= sheet_.observations(); ++row) showCell(row, col);
}

void SheetWindow::showAll() {
  const RedrawLock lock(spdData);
  for (int row = 0; row <= sheet_.observations(); ++row)
    for (int col = 0; col <= sheet_.variables(); ++col) showCell(row, col);
  txtTitle.setText(sheet_.title());
  showCaption();
}

void SheetWindow::showCaption() {
  const std::string& name = sheet_.mtFileName();
  setCaption(name.empty() ? "Data Editor"
                          : "Data Editor [" + host::nameOf(host::pathOf(name).filename()) + "]");
  menu.mnuFileSave.setEnabled(!name.empty());
}

// Where the cursor is, in the words of formulas, and what the cell holds; or why an entry was not
// taken.
void SheetWindow::showStatus() {
  menu.mnuEditUndo.setEnabled(!sheet_.undoName().empty());
  menu.mnuEditRedo.setEnabled(!sheet_.redoName().empty());
  lblStatus.setForeColour(refusal_.empty() ? colours::buttonText : refusalText);
  lblStatus.setCaption(refusal_.empty() ? statusText() : refusal_);
}

std::string SheetWindow::statusText() const {
  if (!notice_.empty()) return notice_;
  if (typesFormula()) return pointingText();
  const CellPosition at = spdData.activeCell();
  if (at.row < 1 || at.col < 1) return {};
  const std::string cell = describedCell(sheet_, {at.row - 1, at.col - 1});
  return told_.text.empty() ? cell : told_.text + "  |  " + cell;
}

void SheetWindow::refuse(std::string reason) {
  refusal_ = std::move(reason);
  desktop().beep();
  showStatus();
}

void SheetWindow::spdData_EditDone(CellPosition cell, const std::string& text, bool& bAccepted) {
  const EntryOutcome outcome = sheet_.enter(cell.row - 1, cell.col - 1, text);
  bAccepted = outcome.accepted;
  told_ = {cell, outcome.taken};
  if (!outcome.accepted) return refuse(outcome.reason);
  refusal_.clear();
  forgetMessages();
}

// First of all that needs the open entry in its cell. Where it is refused nothing else is done: it
// stays open with its text, and the status line says why.
bool SheetWindow::entryIsTaken() {
  if (spdData.commitEdit()) return true;
  spdData.setFocus();
  return false;
}

// As long as the refused entry is open, its reason stands.
void SheetWindow::forgetMessages() {
  if (!spdData.editMode()) refusal_.clear();
  notice_.clear();
  showStatus();
}

// The block last marked, or the active cell.
CellRange SheetWindow::selectedRange() const { return selectedRanges().back(); }

CellRange SheetWindow::rangeOf(const CellBlock& block) {
  return {{std::max(block.row, 1) - 1, std::max(block.col, 1) - 1},
          {block.row2 - 1, block.col2 - 1}};
}

std::vector<CellRange> SheetWindow::selectedRanges() const {
  std::vector<CellBlock> blocks = spdData.selection().blocks();
  const CellPosition at = spdData.activeCell();
  if (blocks.empty()) blocks.push_back({at.row, at.col, at.row, at.col});
  std::vector<CellRange> ranges;
  for (const CellBlock& block : blocks) ranges.push_back(rangeOf(block));
  return ranges;
}

// More than a screen can show are not marked: the first of them is gone to.
void SheetWindow::markRanges(const std::vector<CellRange>& ranges) {
  constexpr std::size_t most = 100;
  if (ranges.empty()) return;
  const CellRange& first = ranges.front();
  const bool isCell = first.first == first.last;
  if (ranges.size() > most || (ranges.size() == 1 && isCell))
    return spdData.setActiveCell({first.first.row + 1, first.first.column + 1});
  std::vector<CellBlock> blocks;
  for (const CellRange& range : ranges)
    blocks.push_back(
        {range.first.row + 1, range.first.column + 1, range.last.row + 1, range.last.column + 1});
  // The one marked last has the cursor.
  std::ranges::reverse(blocks);
  spdData.select(blocks);
}

bool SheetWindow::typesFormula() const {
  const CellPosition cell = spdData.editCell();
  return spdData.editMode() && cell.row > 1 && cell.col > 1 && spdData.editText().starts_with('=');
}

void SheetWindow::spdData_EditChanged() {
  std::vector<std::string> letters;
  if (typesFormula())
    for (int col = 0; col <= spdData.maxCols(); ++col)
      letters.push_back(col == 0 ? std::string() : columnLetters(col - 1));
  spdData.setColumnTags(std::move(letters));
  const bool begins = spdData.editMode() && !entryIsOpen_;
  entryIsOpen_ = spdData.editMode();
  // The reason why a text was not taken is read while it is mended.
  if (begins || spdData.pointed()) refusal_.clear();
  notice_.clear();
  showStatus();
}

std::string SheetWindow::pointingText() const {
  const auto block = spdData.pointed();
  if (!block) {
    if (!spdData.canPoint()) return spdData.editText();
    return spdData.keysMove() ? "Click a cell, or go to it by arrow keys, to put its address here."
                              : "Click a cell to put its address here.";
  }
  const CellRange cells = rangeOf(*block);
  // The open cell may be out of sight by now.
  const std::string formula = spdData.editText() + "      ";
  if (cells.first == cells.last) return formula + describedCell(sheet_, cells.first);
  return formula + addressOf(cells, sheet_.names()) + " = " +
         columnName(sheet_, cells.first.column) +
         (cells.first.column < cells.last.column ? " to " + columnName(sheet_, cells.last.column)
                                                 : "") +
         ", Obs " + std::to_string(std::max(cells.first.row, 1)) + " to " +
         std::to_string(cells.last.row);
}

void SheetWindow::command(GridCommand what) {
  if (!focusedText() && !entryIsTaken()) return;
  if (what == GridCommand::erase) return sheet_.clear(selectedRanges());
  if (what == GridCommand::cut) return copySelection(true);
  if (what == GridCommand::copy) return copySelection(false);
  if (what == GridCommand::paste) return paste();
  if (what == GridCommand::undo) return undoOrRedo(true);
  if (what == GridCommand::redo) return undoOrRedo(false);
}

TextBox* SheetWindow::focusedText() {
  return focus() && focus()->kind() == ControlKind::textBox ? static_cast<TextBox*>(focus())
                                                            : nullptr;
}

void SheetWindow::copyText(TextBox& box, bool cut) {
  if (box.marked().length == 0) return;
  desktop().setClipboard({.text = box.markedText()});
  if (cut && !box.readOnly()) box.replaceMarked({});
}

void SheetWindow::copySelection(bool cut) {
  if (TextBox* box = focusedText()) return copyText(*box, cut);
  if (cut && !isOneBlock("Cut")) return;
  std::optional<CopiedBlock> block =
      cut ? sheet_.cut(selectedRange()) : sheet_.copy(selectedRanges());
  if (!block)
    return refuse(
        "Nothing was copied: blocks that are copied together need the same rows or the "
        "same columns.");
  desktop().setClipboard(
      {.text = block->exactText, .html = htmlOf(*block), .cells = markOf(++copies_)});
  copied_ = std::move(block->table);
  forgetMessages();
}

bool SheetWindow::isOneBlock(const std::string& command) {
  if (spdData.selection().blocks().size() <= 1) return true;
  refuse(command + " takes one block. Mark its cells without Ctrl.");
  return false;
}

// In the looks that the cells have here.
std::string SheetWindow::htmlOf(const CopiedBlock& block) const {
  Sheet page(block.texts.lastRow() + 1, block.texts.lastColumn() + 1);
  for (int row = 1; row <= page.rows(); ++row)
    for (int col = 1; col <= page.cols(); ++col) {
      Cell& cell = page.at(row, col);
      cell.style = spdData.sheet().at(block.rows[row - 1] + 1, block.columns[col - 1] + 1).style;
      cell.text = block.texts(row - 1, col - 1);
    }
  return copyHtml(page, page.body());
}

// One line takes the clipboard's lines as one.
void SheetWindow::pasteInto(TextBox& box, std::string text) {
  if (box.readOnly()) return;
  while (text.ends_with('\n') || text.ends_with('\r')) text.pop_back();
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '\n' || c == '\r' || c == '\t'; }, ' ');
  box.replaceMarked(text);
}

void SheetWindow::paste() {
  ClipboardContent pasted = desktop().pasted();
  if (TextBox* box = focusedText()) return pasteInto(*box, std::move(pasted.text));
  if (!isOneBlock("Paste")) return;
  if (copies_ > 0 && pasted.cells == markOf(copies_)) return takePaste(selectedRange(), copied_);
  auto table = tableOfHtml(pasted.html);
  pasteText(table ? std::move(*table) : HtmlTable{.text = std::move(pasted.text)});
}

void SheetWindow::pasteText(HtmlTable pasted) {
  if (pasted.text.empty()) return;
  const CellAddress at = selectedRange().first;
  auto landing = tableFromText(desktop(), pasted.text,
                               {.origin = TextOrigin::clipboard,
                                .row = at.row,
                                .column = at.column,
                                .observations = sheet_.observations(),
                                .variables = sheet_.variables(),
                                .hints = {.notes = std::move(pasted.notes)}},
                               sheet_.content(), "the clipboard");
  if (!landing) return;
  if (!pasted.title.empty()) landing->table.title = std::move(pasted.title);
  takePaste({landing->first, landing->first}, landing->table);
}

void SheetWindow::takePaste(const CellRange& target, const PasteTable& table) {
  const PasteOutcome outcome = sheet_.paste(target, table);
  outcome.pasted ? tellRefused(outcome.refused, outcome.reason) : refuse(outcome.reason);
}

void SheetWindow::tellRefused(int refused, const std::string& reason) {
  if (refused == 0) return forgetMessages();
  refuse((refused == 1 ? std::string("One cell was") : std::to_string(refused) + " cells were") +
         " not taken. " + reason);
}

void SheetWindow::undoOrRedo(bool undo) {
  if (!entryIsTaken()) return;
  const SheetJournal::Action* action = undo ? sheet_.undo() : sheet_.redo();
  if (!action) return refuse(undo ? "There is nothing to undo." : "There is nothing to redo.");
  markRanges(action->places);
  notice_ = (undo ? "Undone: " : "Redone: ") + std::string(action->name);
  if (!action->places.empty()) notice_ += ", " + placeText(action->places, sheet_.variables());
  showStatus();
}

// The test before a deletion looks at columns, unless the rows are marked whole; that before an
// insertion at rows.
bool SheetWindow::mayChangeRows(bool insert) const {
  if (spdData.selection().blocks().empty()) return selectedRange().first.row > 0;
  return std::ranges::all_of(selectedRanges(), [&](const CellRange& range) {
    const bool isWhole = range.first.column == 0 && range.last.column == sheet_.variables();
    return insert || isWhole ? range.first.row > 0 : range.first.column > 0;
  });
}

void SheetWindow::insertOrDeleteRows(bool insert) {
  if (!entryIsTaken()) return;
  if (!mayChangeRows(insert)) {
    desktop().messageBox({{},
                          insert ? "You cannot insert a row before the variable names."
                                 : "You cannot delete the row of variable names.",
                          MessageIcon::information});
    return;
  }
  if (!insert) return sheet_.deleteRows(selectedRanges());
  if (!isOneBlock("Insert Row")) return;
  const CellRange range = selectedRange();
  const int lost = sheet_.insertRows(range.first.row, range.last.row);
  if (lost == 0) return;
  refusal_ = lost == 1 ? std::string("One row was pushed out at the end. Undo brings it back.")
                       : std::to_string(lost) +
                             " rows were pushed out at the end. Undo brings "
                             "them back.";
  showStatus();
}

// Of one row alone, from the row above. A column marked whole is filled as far as there are cases.
void SheetWindow::fillDown() {
  if (!entryIsTaken()) return;
  if (!isOneBlock("Fill Down")) return;
  CellRange to = selectedRange();
  if (to.first.row == to.last.row) --to.first.row;
  if (to.first.row == 0 && to.last.row == sheet_.observations()) to.last.row = sheet_.lastUsedRow();
  if (to.first.row <= 0 && to.last.row > 1) to.first.row = 1;
  if (to.first.row < 1 || to.last.row <= to.first.row)
    return refuse(
        "Fill Down copies the uppermost marked cell to those below; there is none to "
        "copy.");
  fill({to.first, {to.first.row, to.last.column}}, to);
}

// The cells that stand on top of what is marked go on below.
void SheetWindow::fillSeries() {
  if (!entryIsTaken()) return;
  if (!isOneBlock("Fill Series")) return;
  CellRange to = selectedRange();
  to.first.row = std::max(to.first.row, 1);
  const auto isEmpty = [&](int row) {
    for (int c = to.first.column; c <= to.last.column; ++c)
      if (sheet_.cell(row, c).kind != DataCell::Kind::empty) return false;
    return true;
  };
  CellRange from = to;
  from.last.row = to.first.row - 1;
  while (from.last.row < to.last.row && !isEmpty(from.last.row + 1)) ++from.last.row;
  if (from.last.row < from.first.row || from.last.row >= to.last.row)
    return refuse(
        "Mark the first numbers together with the empty cells below them that are to be "
        "filled.");
  fill(from, to);
}

void SheetWindow::fill(const CellRange& from, const CellRange& to) {
  const FillOutcome outcome = sheet_.fill(from, to);
  markRanges({to});
  tellRefused(outcome.refused, outcome.reason);
}

void SheetWindow::openCellMenu() {
  if (spdData.editMode()) return;
  spdData.setFocus();
  desktop().popupMenu(cellMenu.top, *this);
}

void SheetWindow::find(bool replaces) {
  if (!entryIsTaken()) return;
  const CellAddress from = selectedRange().first;
  frmFind dialog(desktop(), sheet_, findRequest_, from, [this](CellAddress at) {
    spdData.setActiveCell({at.row + 1, at.column + 1});
  });
  if (replaces && !findRequest_.words.text.empty()) dialog.startAtReplace();
  showDialog(std::move(dialog));
}

// Of the column with the cursor.
void SheetWindow::editLabel() {
  const int column = selectedRange().first.column;
  if (column == 0) return refuse("Put the cursor into the column of the variable that you mean.");
  showDialog(frmVariableLabel(desktop(), sheet_, column));
}

void SheetWindow::showDialog(Window&& dialog) {
  if (!entryIsTaken()) return;
  dialog.showModal();
  showStatus();
}

}  // namespace tolmer
