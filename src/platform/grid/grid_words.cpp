#include "platform/grid/grid_words.h"

#include <string_view>

namespace tolmer {
namespace {

void add(std::string& words, std::string_view more) {
  if (!more.empty()) words.append(words.empty() ? "" : ", ").append(more);
}

bool isHeading(const Grid& grid, CellPosition cell) {
  return grid.sheet().contains(cell) && grid.sheet().at(cell.row, cell.col).style.heading;
}

std::string ownWords(const Grid& grid, CellPosition cell) {
  return grid.describeCell ? grid.describeCell(cell) : std::string();
}

}  // namespace

std::string columnHeading(const Grid& grid, int col) {
  if (grid.rowAxis().size(0) > 0) return grid.text(0, col);
  return isHeading(grid, {1, col}) ? grid.wholeText({1, col}) : std::string();
}

std::string rowHeading(const Grid& grid, int row) {
  if (grid.colAxis().size(0) > 0) return grid.text(row, 0);
  return isHeading(grid, {row, 1}) ? grid.wholeText({row, 1}) : std::string();
}

std::optional<CellPosition> focusedCell(const Grid& grid) {
  if (grid.selectionMode() != SelectionMode::none) return grid.activeCell();
  if (grid.currentRow() == 0 || grid.currentRow() > grid.maxRows()) return std::nullopt;
  return CellPosition{grid.currentRow(), 1};
}

std::string remarksOn(const Grid& grid, CellPosition cell) {
  std::string words(grid.sheet().at(cell.row, cell.col).mark);
  add(words, grid.remarkOn(cell));
  return words;
}

std::string describedCell(const Grid& grid, CellPosition cell) {
  std::string words = ownWords(grid, cell);
  const bool isSaid = !words.empty();
  if (!isSaid && cell.row > 1) add(words, columnHeading(grid, cell.col));
  if (!isSaid && cell.col > 1) add(words, rowHeading(grid, cell.row));
  // Where rows are listed, the one at hand is heard whole.
  for (int col = 1; grid.selectionMode() == SelectionMode::rows && col <= grid.maxCols(); ++col)
    if (col != cell.col) add(words, grid.text(cell.row, col));
  if (grid.selectionMode() != SelectionMode::none || cell.col != 1) {
    add(words, remarksOn(grid, cell));
    return words;
  }
  add(words, grid.sheet().at(cell.row, cell.col).mark);
  add(words, grid.tipOn(cell));
  return words;
}

std::string spokenRow(const Grid& grid, int row) {
  std::string words;
  for (int col = 1; col <= grid.maxCols(); ++col) {
    add(words, grid.text(row, col));
    add(words, remarksOn(grid, {row, col}));
  }
  return words;
}

}  // namespace tolmer
