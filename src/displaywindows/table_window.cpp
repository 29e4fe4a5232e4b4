#include "displaywindows/table_window.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "displays/case_words.h"
#include "platform/desktop.h"
#include "platform/grid/grid_copy.h"
#include "platform/grid/grid_fit.h"
#include "tables/html_writer.h"
#include "tables/mark_colours.h"

namespace tolmer {
namespace {

constexpr float largestLetters = 18;  // pixels
constexpr float roomToGrow = 2;       // the table in larger letters takes at most half the room

}  // namespace

Sheet gridSheet(const TableContent& table) {
  Sheet sheet(table.rows(), table.cols());
  for (int row = 1; row <= table.rows(); ++row)
    for (int col = 1; col <= table.cols(); ++col) {
      const TableCell& from = table.at(row, col);
      Cell& cell = sheet.at(row, col);
      cell.text = from.text;
      if (from.role != CellRole::key) cell.mark = spokenMark(from.mark);
      cell.style.align = from.align;
      cell.style.heading = from.role == CellRole::heading;
      cell.style.back = backOf(from);
      if (isFramed(from)) cell.style.fore = colours::buttonText;
    }
  return sheet;
}

TableWindow::TableWindow(Desktop& desktop, AnalysisState& state, DisplayHost& host,
                         const Display& display)
    : DisplayWindow(desktop, state, host, display), grid_(this, display.control) {
  grid_.setSelectionMode(SelectionMode::none);
  grid_.setAccessibleName(display.caption);
  grid_.Click = [this](CellPosition) { UpdateControls(); };
  grid_.MouseUp = [this](MouseButton button) { Form_MouseUp(button); };
  Resize = [this] { Form_Resize(); };
  if (display.listsCases) takeKeys();
}

// Arrows step through the cases; where cells are marked, from one of these to the next.
void TableWindow::takeKeys() {
  grid_.Press = [this](CellPosition cell, ClickKeys held) { pressRow(cell.row, held); };
  grid_.describeRow = [this](int row) {
    return caseOf(row) > 0 ? wordsOnCase(state_, caseOf(row)) : std::string();
  };
  const auto take = [this](int code, int rows) {
    for (const bool adds : {false, true})
      grid_.takeKey(
          {code, adds ? Held::yes : Held::no, Held::no, Held::no},
          [this, rows, adds] { step(rows, adds); },
          [this] { return grid_.selectionMode() == SelectionMode::none && host_.selectedCases(); });
  };
  take(keys::down, 1);
  take(keys::up, -1);
}

int TableWindow::caseOf(int row) const {
  return row >= 1 && row <= table_.rows() ? table_.caseOf(row) : 0;
}

// With Shift all from the row that was touched last to this one.
void TableWindow::pressRow(int row, ClickKeys held) {
  if (caseOf(row) == 0) return;
  std::vector<int> cases{caseOf(row)};
  const int from = held.shift ? grid_.currentRow() : 0;
  for (int at = from; at > 0 && at != row; at += from < row ? 1 : -1)
    if (caseOf(at) > 0) cases.push_back(caseOf(at));
  pick(cases, held);
}

void TableWindow::step(int rows, bool adds) {
  int row = grid_.currentRow();
  if (row == 0 && rows < 0) row = grid_.maxRows() + 1;
  do {
    row += rows;
  } while (row >= 1 && row <= table_.rows() && caseOf(row) == 0);
  if (caseOf(row) > 0) pick({caseOf(row)}, {.shift = adds});
}

void TableWindow::Form_Resize() {
  if (state_.bStartingUp) return;
  PositionControls();
  UpdateDisplay();
}

void TableWindow::PositionControls() { grid_.setPlace({0, 0, innerWidth(), innerHeight()}); }

void TableWindow::drawDisplay() {
  table_ = std::get<TableContent>(content());
  RedrawLock lock(grid_);
  grid_.setScrollBars(ScrollBars::none);
  grid_.setSelectionMode(SelectionMode::none);
  grid_.setSheet(gridSheet(table_));
  std::vector<CellRemark> wholeNames;
  for (const auto& [row, col, tName] : table_.wholeNames) wholeNames.push_back({{row, col}, tName});
  grid_.setWholeTexts(std::move(wholeNames));
  showRemarks();
  showCases();
  grid_.freeze(1, table_.fixedColumns);
  chooseFont();
  fillRoom(grid_, {innerWidth(), innerHeight()}, desktop().scrollBarThickness(), table_.partingRow);
  PositionControls();
}

void TableWindow::showCases() {
  const CaseSelection* selection = host_.selectedCases();
  if (!selection || !display_.listsCases) return;
  std::vector<int> rows;
  int current = 0;
  for (int row = 1; row <= table_.rows(); ++row) {
    if (!std::binary_search(selection->cases().begin(), selection->cases().end(), caseOf(row)))
      continue;
    rows.push_back(row);
    if (caseOf(row) == selection->current()) current = row;
  }
  grid_.light(std::move(rows), current);
}

void TableWindow::showRemarks() { grid_.setRemarks(host_.remarksOn(display_)); }

// Only a grid whose cells can be marked shows where it stands; the next update makes it a table to
// look at again.
void TableWindow::showCells(const std::vector<CellPosition>& cells) {
  grid_.setSelectionMode(SelectionMode::cells);
  std::vector<CellBlock> blocks;
  for (auto cell = cells.rbegin(); cell != cells.rend(); ++cell)
    blocks.push_back({cell->row, cell->col, cell->row, cell->col});
  grid_.select(blocks);
  grid_.setFocus();
}

// A small table in a large window, such as a maximised one, is set in larger letters: the room that
// is left over would only drive its figures apart.
void TableWindow::chooseFont() {
  const Font standard;
  grid_.setFont(standard);
  fitRowsAndColumns();
  const Size content = grid_.contentSize();
  const float room = std::min(innerWidth() / content.width, innerHeight() / content.height);
  const float twoPixelSteps = std::floor(standard.pixels * room / roomToGrow / 2);
  const float size = std::min(2 * twoPixelSteps, largestLetters);
  if (size <= standard.pixels) return;
  grid_.setFont({standard.family, size});
  fitRowsAndColumns();
}

void TableWindow::fitRowsAndColumns() {
  fitToTexts(grid_, lowestTableRow);
  if (table_.frameShare > 1) lowerFrame();
}

// In whole pixels.
void TableWindow::lowerFrame() {
  const Twips height = grid_.rowHeight(1) / static_cast<float>(table_.frameShare);
  const Twips low = pixels(std::round(height / twipsPerPixel));
  for (int row = 1; row <= table_.rows(); ++row)
    if (table_.isFrame(row)) grid_.setRowHeight(row, low);
}

void TableWindow::CopyGraph() {
  const Sheet sheet = gridSheet(table_);
  TableContent noted = table_;
  for (std::string& note : host_.notesOn(display_)) noted.notes.push_back(std::move(note));
  desktop().setClipboard({.text = copyText(sheet, sheet.body()), .html = copiedTableHtml(noted)});
}

}  // namespace tolmer
