#include "tables/rows_below.h"

#include <cmath>

#include "tables/table_style.h"

namespace tolmer {
namespace {

int legendRow(int rows) { return rows - 1; }

}  // namespace

void styleRowsBelow(Sheet& sheet) {
  for (int row = sheet.rows() - rowsBelow + 1; row <= sheet.rows(); ++row)
    styleRow(sheet, row, faceStyle(Align::left));
}

void putLegend(Sheet& sheet, int col, const Mark& mark, Align align) {
  if (!mark.occurs) return;
  put(sheet, legendRow(sheet.rows()), col, mark.meaning, {.align = align, .back = mark.colour});
}

void lowerRowsBelow(Grid& grid, int part) {
  const int last = grid.maxRows();
  const Twips height = grid.rowHeight(2) / static_cast<float>(part);
  const Twips low = pixels(std::round(height / twipsPerPixel));
  for (int row = last - rowsBelow + 1; row <= last; ++row)
    if (row != legendRow(last) || grid.tallestText(row) == 0) grid.setRowHeight(row, low);
}

}  // namespace tolmer
