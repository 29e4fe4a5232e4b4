// The sheet on the screen: grid, title, caption and status line.
#include <algorithm>
#include <filesystem>
#include <utility>

#include "editor/data_editor.h"
#include "editor/dialog_parts.h"
#include "platform/desktop.h"

namespace tolmer {
namespace {

constexpr Colour headingGround = Colour::rgb(255, 255, 128);
constexpr Twips numberWidth = pixels(44);  // of the observations' numbers
constexpr Twips rowHeight = pixels(20);
constexpr Twips labelWidth = pixels(110);
constexpr Twips columnWidth = pixels(84);

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

}  // namespace

void frmDataEditor::InitialiseGrid() {
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
void frmDataEditor::resetGrid() {
  spdData.setColWidth(0, numberWidth);
  for (int col = 1; col <= spdData.maxCols(); ++col)
    spdData.setColWidth(col, col == 1 ? labelWidth : columnWidth);
  spdData.setEditModeReplace(true);
  menu.mnuEditTypingReplaces.setChecked(true);
  spdData.setActiveCell({2, 1});
}

void frmDataEditor::placeControls() {
  const Twips width = std::max(innerWidth(), pixels(480));
  const Twips height = std::max(innerHeight(), pixels(240));
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

void frmDataEditor::follow(const SheetChange& change) {
  {
    const RedrawLock lock(spdData);
    if (change.all) showAll();
    for (const CellAddress& cell : change.cells) showCell(cell.row, cell.column);
    for (const int column : change.decimals) showColumn(column);
  }
  if (change.title) txtTitle.setText(sheet_.title());
  if (change.file) showCaption();
  sheet_.unsaved() ? autosave_.changed() : autosave_.clean();
  told_ = {};
  forgetMessages();
}

void frmDataEditor::showCell(int row, int col) {
  spdData.setText(row + 1, col + 1, sheet_.shownText(row, col));
}

void frmDataEditor::showColumn(int col) {
  if (col < 1) return;
  for (int row = 0; row <= sheet_.observations(); ++row) showCell(row, col);
}

void frmDataEditor::showAll() {
  const RedrawLock lock(spdData);
  for (int row = 0; row <= sheet_.observations(); ++row)
    for (int col = 0; col <= sheet_.variables(); ++col) showCell(row, col);
  txtTitle.setText(sheet_.title());
  showCaption();
}

void frmDataEditor::showCaption() {
  const std::string& name = sheet_.mtFileName();
  setCaption(name.empty()
                 ? "Data Editor"
                 : "Data Editor [" + std::filesystem::path(name).filename().string() + "]");
  menu.mnuFileSave.setEnabled(!name.empty());
}

// Where the cursor is, in the words of formulas, and what the cell holds; or why an entry was not
// taken.
void frmDataEditor::showStatus() {
  menu.mnuEditUndo.setEnabled(!sheet_.undoName().empty());
  menu.mnuEditRedo.setEnabled(!sheet_.redoName().empty());
  lblStatus.setForeColour(refusal_.empty() ? colours::buttonText : refusalText);
  lblStatus.setCaption(refusal_.empty() ? statusText() : refusal_);
}

std::string frmDataEditor::statusText() const {
  if (!notice_.empty()) return notice_;
  if (typesFormula()) return pointingText();
  const CellPosition at = spdData.activeCell();
  if (at.row < 1 || at.col < 1) return {};
  const std::string cell = describedCell(sheet_, {at.row - 1, at.col - 1});
  return told_.text.empty() ? cell : told_.text + "  |  " + cell;
}

void frmDataEditor::refuse(std::string reason) {
  refusal_ = std::move(reason);
  desktop().beep();
  showStatus();
}

void frmDataEditor::spdData_EditDone(CellPosition cell, const std::string& text, bool& bAccepted) {
  const EntryOutcome outcome = sheet_.enter(cell.row - 1, cell.col - 1, text);
  bAccepted = outcome.accepted;
  told_ = {cell, outcome.taken};
  if (!outcome.accepted) return refuse(outcome.reason);
  refusal_.clear();
  forgetMessages();
}

// First of all that needs the open entry in its cell. Where it is refused nothing else is done: it
// stays open with its text, and the status line says why.
bool frmDataEditor::entryIsTaken() {
  if (spdData.commitEdit()) return true;
  spdData.setFocus();
  return false;
}

// As long as the refused entry is open, its reason stands.
void frmDataEditor::forgetMessages() {
  if (!spdData.editMode()) refusal_.clear();
  notice_.clear();
  showStatus();
}

// The block last marked, or the active cell.
CellRange frmDataEditor::selectedRange() const { return selectedRanges().back(); }

CellRange frmDataEditor::rangeOf(const CellBlock& block) {
  return {{std::max(block.row, 1) - 1, std::max(block.col, 1) - 1},
          {block.row2 - 1, block.col2 - 1}};
}

std::vector<CellRange> frmDataEditor::selectedRanges() const {
  std::vector<CellBlock> blocks = spdData.selection().blocks();
  const CellPosition at = spdData.activeCell();
  if (blocks.empty()) blocks.push_back({at.row, at.col, at.row, at.col});
  std::vector<CellRange> ranges;
  for (const CellBlock& block : blocks) ranges.push_back(rangeOf(block));
  return ranges;
}

// More than a screen can show are not marked: the first of them is gone to.
void frmDataEditor::markRanges(const std::vector<CellRange>& ranges) {
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

}  // namespace tolmer
