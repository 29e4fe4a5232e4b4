#include "platform/grid/grid_keys.h"

#include <algorithm>
#include <utility>

namespace tolmer {
namespace {

// The next visible one in that direction; the same one where there is none.
int neighbour(const GridAxis& axis, int from, int step) {
  for (int index = from + step; index >= 1 && index <= axis.count(); index += step)
    if (axis.size(index) > 0) return index;
  return from;
}

int firstVisible(const GridAxis& axis) { return neighbour(axis, 0, 1); }
int lastVisible(const GridAxis& axis) { return neighbour(axis, axis.count() + 1, -1); }

int pageRoom(const Grid& grid) {
  const int height = static_cast<int>(grid.height() / twipsPerPixel);
  return height - grid.rowAxis().frozenEnd();
}

int pageDown(const Grid& grid, int row) {
  const GridAxis& axis = grid.rowAxis();
  const int last = std::max(axis.lastWithin(row, pageRoom(grid)), neighbour(axis, row, 1));
  return axis.size(last) > 0 ? last : neighbour(axis, last, -1);
}

int pageUp(const Grid& grid, int row) {
  const GridAxis& axis = grid.rowAxis();
  int first = neighbour(axis, row, -1);
  while (neighbour(axis, first, -1) < first && axis.lastWithin(first - 1, pageRoom(grid)) >= row)
    first = neighbour(axis, first, -1);
  return first;
}

int byArrow(const GridAxis& axis, int from, int step, bool toEnd) {
  if (!toEnd) return neighbour(axis, from, step);
  return step < 0 ? firstVisible(axis) : lastVisible(axis);
}

// Home and End stay in the row, unless the rows are what is listed.
CellPosition byHomeOrEnd(const Grid& grid, CellPosition from, bool end, bool toCorner) {
  const auto limit = [end](const GridAxis& axis) {
    return end ? lastVisible(axis) : firstVisible(axis);
  };
  const bool isList = grid.selectionMode() == SelectionMode::rows;
  return {toCorner || isList ? limit(grid.rowAxis()) : from.row,
          isList ? from.col : limit(grid.colAxis())};
}

struct Step {
  int row;
  int col;
};

CellPosition next(const Grid& grid, CellPosition from, Step step) {
  if (step.row != 0) return {neighbour(grid.rowAxis(), from.row, step.row), from.col};
  return {from.row, neighbour(grid.colAxis(), from.col, step.col)};
}

// From within filled cells to the last one of them, else to the next filled one, else to the end.
CellPosition edgeOfData(const Grid& grid, CellPosition from, Step step) {
  const auto isEmpty = [&grid](CellPosition cell) { return grid.text(cell.row, cell.col).empty(); };
  CellPosition at = from;
  CellPosition ahead = next(grid, at, step);
  const bool within = !isEmpty(at) && !isEmpty(ahead);
  while (ahead != at && !(within && isEmpty(ahead))) {
    at = std::exchange(ahead, next(grid, ahead, step));
    if (!within && !isEmpty(at)) break;
  }
  return at;
}

std::optional<Step> stepOf(int code) {
  if (code == keys::up) return Step{-1, 0};
  if (code == keys::down) return Step{1, 0};
  if (code == keys::left) return Step{0, -1};
  if (code == keys::right) return Step{0, 1};
  return std::nullopt;
}

std::optional<CellPosition> cellFrom(const Grid& grid, const KeyPress& key, CellPosition from) {
  if (key.code == keys::up)
    return CellPosition{byArrow(grid.rowAxis(), from.row, -1, key.control), from.col};
  if (key.code == keys::down)
    return CellPosition{byArrow(grid.rowAxis(), from.row, 1, key.control), from.col};
  if (key.code == keys::left)
    return CellPosition{from.row, byArrow(grid.colAxis(), from.col, -1, key.control)};
  if (key.code == keys::right)
    return CellPosition{from.row, byArrow(grid.colAxis(), from.col, 1, key.control)};
  if (key.code == keys::pageUp) return CellPosition{pageUp(grid, from.row), from.col};
  if (key.code == keys::pageDown) return CellPosition{pageDown(grid, from.row), from.col};
  if (key.code == keys::home) return byHomeOrEnd(grid, from, false, key.control);
  if (key.code == keys::end) return byHomeOrEnd(grid, from, true, key.control);
  return std::nullopt;
}

}  // namespace

std::optional<CellPosition> cellByEditKey(const Grid& grid, const KeyPress& key,
                                          CellPosition from) {
  if (key.alt) return std::nullopt;
  if (!key.control) return cellFrom(grid, key, from);
  if (const auto step = stepOf(key.code)) return edgeOfData(grid, from, *step);
  if (key.code != keys::end) return cellFrom(grid, key, from);
  const CellPosition last = lastUsedCell(grid.sheet());
  return CellPosition{std::max(last.row, 1), std::max(last.col, 1)};
}

CellPosition lastUsedCell(const Sheet& sheet) {
  CellPosition last;
  for (int row = 1; row <= sheet.rows(); ++row)
    for (int col = 1; col <= sheet.cols(); ++col)
      if (!sheet.at(row, col).text.empty()) last = {row, std::max(last.col, col)};
  return last;
}

std::optional<CellPosition> cellByKey(const Grid& grid, const KeyPress& key) {
  if (key.alt) return std::nullopt;
  return cellFrom(grid, key, key.shift ? grid.selection().head() : grid.activeCell());
}

}  // namespace tolmer
