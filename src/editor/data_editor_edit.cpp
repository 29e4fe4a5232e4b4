// Blocks, rows and formats of the sheet.
#include <algorithm>
#include <utility>

#include "editor/data_editor.h"
#include "editor/instructions.h"
#include "editor/table_from_text.h"
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
      return sheet_.clear(selectedRange());
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
  const CellRange range = selectedRange();
  CopiedBlock block = cut ? sheet_.cut(range) : sheet_.copy(range);
  desktop().setClipboard(
      {.text = block.exactText, .html = htmlOf(block, range.first), .cells = markOf(++copies_)});
  copied_ = std::move(block.table);
}

// In the looks that the cells have here.
std::string frmDataEditor::htmlOf(const CopiedBlock& block, const CellAddress& first) const {
  Sheet page(block.texts.lastRow() + 1, block.texts.lastColumn() + 1);
  for (int row = 1; row <= page.rows(); ++row)
    for (int col = 1; col <= page.cols(); ++col) {
      Cell& cell = page.at(row, col);
      cell.style = spdData.sheet().at(first.row + row, first.column + col).style;
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
  refusal_ = outcome.pasted ? std::string() : outcome.reason;
  if (outcome.pasted && outcome.refused > 0)
    refusal_ = (outcome.refused == 1 ? std::string("One cell was")
                                     : std::to_string(outcome.refused) + " cells were") +
               " not taken. " + outcome.reason;
  if (!refusal_.empty()) desktop().beep();
  showStatus();
}

void frmDataEditor::undoOrRedo(bool undo) {
  if (!entryIsTaken()) return;
  if (!(undo ? sheet_.undo() : sheet_.redo())) desktop().beep();
  // The standard of the decimals shows nowhere, but it too can be undone and redone.
  showStatus();
}

// The test before a deletion looks at columns, that before an insertion at rows.
void frmDataEditor::insertOrDeleteRows(bool insert) {
  if (!entryIsTaken()) return;
  const bool isBlock = !spdData.selection().blocks().empty();
  const CellRange range = selectedRange();
  const bool refused = !isBlock ? range.first.row == 0
                       : insert ? range.first.row == 0 || range.last.row == 0
                                : range.first.column == 0 || range.last.column == 0;
  if (refused) {
    desktop().messageBox({.title = {},
                          .text = insert ? "You cannot insert a row before the variable names."
                                         : "You cannot delete the row of variable names.",
                          .icon = MessageIcon::information});
    return;
  }
  if (!insert) return sheet_.deleteRows(range.first.row, range.last.row);
  const int lost = sheet_.insertRows(range.first.row, range.last.row);
  if (lost == 0) return;
  refusal_ = lost == 1 ? std::string("One row was pushed out at the end. Undo brings it back.")
                       : std::to_string(lost) +
                             " rows were pushed out at the end. Undo brings "
                             "them back.";
  showStatus();
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
