#include "displays/table_display.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/desktop.h"
#include "platform/grid/grid_copy.h"
#include "platform/grid/grid_fit.h"
#include "platform/text_metrics.h"

namespace tolmer {

TableDisplay::TableDisplay(Desktop& desktop, AnalysisState& state, DisplayHost& host,
                           std::string name, std::string title, std::string gridName)
    : DisplayWindow(desktop, state, host, std::move(name), title),
      title_(std::move(title)),
      grid_(this, std::move(gridName)) {
  grid_.setSelectionMode(SelectionMode::none);
  grid_.setAccessibleName(title_);
  grid_.Click = [this](CellPosition) { UpdateControls(); };
  grid_.MouseUp = [this](MouseButton button) { Form_MouseUp(button); };
  Resize = [this] { Form_Resize(); };
}

void TableDisplay::Form_Resize() {
  if (state_.bStartingUp) return;
  PositionControls();
  UpdateDisplay();
}

void TableDisplay::PositionControls() { grid_.setPlace({0, 0, innerWidth(), innerHeight()}); }

void TableDisplay::UpdateDisplay() {
  setTitle(title_);
  RedrawLock lock(grid_);
  grid_.setScrollBars(ScrollBars::none);
  grid_.setSheet(content());
  fitRowsAndColumns();
  fillRoom(grid_, {innerWidth(), innerHeight()}, desktop().scrollBarThickness());
  PositionControls();
}

void TableDisplay::fitRowsAndColumns() {
  for (int row = 1; row <= grid_.maxRows(); ++row)
    grid_.setRowHeight(row, std::max(grid_.tallestText(row), lowestTableRow));
  lowerRows();
  const auto blank = static_cast<float>(std::ceil(textWidth(grid_.font(), " ")));
  for (int col = 1; col <= grid_.maxCols(); ++col)
    grid_.setColWidth(col, grid_.widestText(col) + pixels(blank));
}

void TableDisplay::CopyGraph() {
  const Sheet& sheet = grid_.sheet();
  desktop().setClipboard(
      {.text = copyText(sheet, sheet.body()), .html = copyHtml(sheet, sheet.body())});
}

}  // namespace tolmer
