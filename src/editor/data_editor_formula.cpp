// A formula while it is typed: the letters of the columns, and the cells that are pointed at.
#include <algorithm>
#include <utility>

#include "editor/data_editor.h"
#include "editor/dialog_parts.h"
#include "editor/formula_pointing.h"

namespace tolmer {

bool frmDataEditor::typesFormula() const {
  const CellPosition cell = spdData.editCell();
  return spdData.editMode() && cell.row > 1 && cell.col > 1 && spdData.editText().starts_with('=');
}

void frmDataEditor::spdData_EditChanged() {
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

std::string frmDataEditor::pointingText() const {
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

}  // namespace tolmer
