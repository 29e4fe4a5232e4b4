// Blocks, rows and formats of the sheet.
#include <algorithm>
#include <optional>
#include <utility>

#include "editor/data_editor.h"
#include "editor/dialog_parts.h"
#include "editor/import_dialog.h"
#include "editor/instructions.h"
#include "platform/desktop.h"
#include "platform/grid/grid_copy.h"

namespace tolmer {
namespace {

// Marks cells on the clipboard as those that were copied last in this program.
std::string markOf(int copies) { return "cells " + std::to_string(copies); }

}  // namespace

void frmDataEditor::command(GridCommand what) {
  if (!focusedText() && !entryIsTaken()) return;
  switch (what) {
    case GridCommand::erase:
      return sheet_.clear(selectedRanges());
    case GridCommand::cut:
      return copySelection(true);
    case GridCommand::copy:
      return copySelection(false);
    case GridCommand::paste:
      return paste();
    case GridCommand::undo:
      return undoOrRedo(true);
    case GridCommand::redo:
      return undoOrRedo(false);
  }
}

TextBox* frmDataEditor::focusedText() {
  return focus() && focus()->kind() == ControlKind::textBox ? static_cast<TextBox*>(focus())
                                                            : nullptr;
}

void frmDataEditor::copyText(TextBox& box, bool cut) {
  if (box.marked().length == 0) return;
  desktop().setClipboard({.text = box.markedText()});
  if (cut && !box.readOnly()) box.replaceMarked({});
}

void frmDataEditor::copySelection(bool cut) {
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

bool frmDataEditor::isOneBlock(const std::string& command) {
  if (spdData.selection().blocks().size() <= 1) return true;
  refuse(command + " takes one block. Mark its cells without Ctrl.");
  return false;
}

// In the looks that the cells have here.
std::string frmDataEditor::htmlOf(const CopiedBlock& block) const {
  Sheet page(block.texts.lastRow() + 1, block.texts.lastColumn() + 1);
  for (int row = 1; row <= page.rows(); ++row)
    for (int col = 1; col <= page.cols(); ++col) {
      Cell& cell = page.at(row, col);
      cell.style = spdData.sheet()
                       .at(block.rows[static_cast<std::size_t>(row) - 1] + 1,
                           block.columns[static_cast<std::size_t>(col) - 1] + 1)
                       .style;
      cell.text = block.texts(row - 1, col - 1);
    }
  return copyHtml(page, page.body());
}

// One line takes the clipboard's lines as one.
void frmDataEditor::pasteInto(TextBox& box) {
  if (box.readOnly()) return;
  std::string text = desktop().clipboardText();
  while (text.ends_with('\n') || text.ends_with('\r')) text.pop_back();
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '\n' || c == '\r' || c == '\t'; }, ' ');
  box.replaceMarked(text);
}

void frmDataEditor::paste() {
  if (TextBox* box = focusedText()) return pasteInto(*box);
  if (!isOneBlock("Paste")) return;
  if (copies_ > 0 && desktop().clipboardCells() == markOf(copies_))
    return takePaste(selectedRange(), copied_);
  pasteText(desktop().clipboardText());
}

void frmDataEditor::pasteText(const std::string& text) {
  if (text.empty()) return;
  const CellAddress at = selectedRange().first;
  const auto landing = tableFromText(
      desktop(), text,
      {TextOrigin::clipboard, at.row, at.column, sheet_.observations(), sheet_.variables()},
      sheet_.content(), "the clipboard");
  if (landing) takePaste({landing->first, landing->first}, landing->table);
}

void frmDataEditor::takePaste(const CellRange& target, const PasteTable& table) {
  const PasteOutcome outcome = sheet_.paste(target, table);
  outcome.pasted ? tellRefused(outcome.refused, outcome.reason) : refuse(outcome.reason);
}

void frmDataEditor::tellRefused(int refused, const std::string& reason) {
  if (refused == 0) return forgetMessages();
  refuse((refused == 1 ? std::string("One cell was") : std::to_string(refused) + " cells were") +
         " not taken. " + reason);
}

void frmDataEditor::undoOrRedo(bool undo) {
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
bool frmDataEditor::mayChangeRows(bool insert) const {
  if (spdData.selection().blocks().empty()) return selectedRange().first.row > 0;
  return std::ranges::all_of(selectedRanges(), [&](const CellRange& range) {
    const bool isWhole = range.first.column == 0 && range.last.column == sheet_.variables();
    return insert || isWhole ? range.first.row > 0 : range.first.column > 0;
  });
}

void frmDataEditor::insertOrDeleteRows(bool insert) {
  if (!entryIsTaken()) return;
  if (!mayChangeRows(insert)) {
    desktop().messageBox({.title = {},
                          .text = insert ? "You cannot insert a row before the variable names."
                                         : "You cannot delete the row of variable names.",
                          .icon = MessageIcon::information});
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
void frmDataEditor::fillDown() {
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
void frmDataEditor::fillSeries() {
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

void frmDataEditor::fill(const CellRange& from, const CellRange& to) {
  const FillOutcome outcome = sheet_.fill(from, to);
  markRanges({to});
  tellRefused(outcome.refused, outcome.reason);
}

void frmDataEditor::openCellMenu() {
  if (spdData.editMode()) return;
  spdData.setFocus();
  desktop().popupMenu(cellMenu.top, *this);
}

void frmDataEditor::find(bool replaces) {
  if (!entryIsTaken()) return;
  const CellAddress from = selectedRange().first;
  frmFind dialog(desktop(), sheet_, findRequest_, from, [this](CellAddress at) {
    spdData.setActiveCell({at.row + 1, at.column + 1});
  });
  if (replaces && !findRequest_.words.text.empty()) dialog.startAtReplace();
  showDialog(dialog);
}

void frmDataEditor::showDialog(Window& dialog) {
  if (!entryIsTaken()) return;
  dialog.showModal();
  showStatus();
}

void frmDataEditor::showInstructions(int index) {
  txtHelp.setText(instructions(index));
  txtHelp.setVisible(true);
  cmdClose.setVisible(true);
  txtHelp.setFocus();  // where keys scroll
}

void frmDataEditor::closeInstructions() {
  txtHelp.setVisible(false);
  cmdClose.setVisible(false);
  spdData.setFocus();
}

}  // namespace tolmer
