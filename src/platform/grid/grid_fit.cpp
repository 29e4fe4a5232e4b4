#include "platform/grid/grid_fit.h"

#include <algorithm>
#include <cmath>

#include "platform/text_metrics.h"

namespace tolmer {
namespace {

bool isUpright(ScrollBars bars) { return bars == ScrollBars::vertical || bars == ScrollBars::both; }
bool isFlat(ScrollBars bars) { return bars == ScrollBars::horizontal || bars == ScrollBars::both; }

struct Share {
  Twips each = 0;
  Twips last = 0;  // instead of `each`, for the last one
};

// Of the spare room for each of the rows or columns from the second to `count`.
Share shareOf(Twips spare, int count) {
  if (count < 2 || spare < twipsPerPixel) return {};
  const int whole = static_cast<int>(std::floor(spare / twipsPerPixel));
  const int each = whole / (count - 1);
  const int rest = whole % (count - 1);
  return {pixels(static_cast<float>(each)), pixels(static_cast<float>(each + rest))};
}

bool isNumber(const std::string& text) {
  return text.find_first_not_of("0123456789.+-eE") == std::string::npos &&
         text.find_first_of("0123456789") != std::string::npos;
}

}  // namespace

ScrollBars neededScrollBars(Size content, Size room, Twips thickness) {
  bool flat = content.width > room.width;
  bool upright = content.height > room.height;
  if (flat) upright = content.height + thickness > room.height;
  if (upright) flat = content.width + thickness > room.width;
  if (flat && upright) return ScrollBars::both;
  if (flat) return ScrollBars::horizontal;
  return upright ? ScrollBars::vertical : ScrollBars::none;
}

std::string shownForFigure(const Cell& cell, double room, double markWidth) {
  const bool isFigure =
      !cell.style.heading && cell.style.align == Align::right && isNumber(cell.text);
  if (!isFigure) return {};
  return std::string(static_cast<std::size_t>(std::max(room / markWidth, 1.0)), '#');
}

void fitToTexts(Grid& grid, Twips lowestRow) {
  for (int row = 1; row <= grid.maxRows(); ++row)
    grid.setRowHeight(row, std::max(grid.tallestText(row), lowestRow));
  const auto blank = static_cast<float>(std::ceil(textWidth(grid.font(), " ")));
  for (int col = 1; col <= grid.maxCols(); ++col)
    grid.setColWidth(col, grid.widestText(col) + pixels(blank));
}

void fillRoom(Grid& grid, Size room, Twips barThickness, int partingRow) {
  RedrawLock lock(grid);
  const Size content = grid.contentSize();
  const ScrollBars bars = neededScrollBars(content, room, barThickness);
  grid.setScrollBars(bars);
  if (isUpright(bars)) room.width -= barThickness;
  if (isFlat(bars)) room.height -= barThickness;
  const Share cols = shareOf(room.width - content.width, grid.maxCols());
  const Share rows =
      shareOf(room.height - content.height, grid.maxRows() - (partingRow > 0 ? 1 : 0));
  for (int col = 2; col <= grid.maxCols(); ++col)
    grid.setColWidth(col, grid.colWidth(col) + (col < grid.maxCols() ? cols.each : cols.last));
  for (int row = 2; row <= grid.maxRows(); ++row)
    if (row != partingRow)
      grid.setRowHeight(row, grid.rowHeight(row) + (row < grid.maxRows() ? rows.each : rows.last));
}

}  // namespace tolmer
