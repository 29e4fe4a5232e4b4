#include "displays/table_display.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/desktop.h"
#include "platform/grid/grid_copy.h"
#include "platform/grid/grid_fit.h"
#include "platform/text_metrics.h"

namespace tolmer {
namespace {

constexpr float largestLetters = 18;  // pixels
constexpr float roomToGrow = 2;       // the table in larger letters takes at most half the room

}  // namespace

TableDisplay::TableDisplay(Desktop& desktop, AnalysisState& state, DisplayHost& host,
                           std::string name, std::string title, std::string gridName)
    : DisplayWindow(desktop, state, host, std::move(name), std::move(title)),
      grid_(this, std::move(gridName)) {
  grid_.setSelectionMode(SelectionMode::none);
  grid_.setAccessibleName(caption());
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

void TableDisplay::drawDisplay() {
  RedrawLock lock(grid_);
  grid_.setScrollBars(ScrollBars::none);
  grid_.setSheet(content());
  const CellPosition frozen = frozenCorner();
  grid_.freeze(frozen.row, frozen.col);
  chooseFont();
  fillRoom(grid_, {innerWidth(), innerHeight()}, desktop().scrollBarThickness());
  PositionControls();
}

// A small table in a large window, such as a maximised one, is set in larger letters: the room that
// is left over would only drive its figures apart.
void TableDisplay::chooseFont() {
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

void TableDisplay::fitRowsAndColumns() {
  for (int row = 1; row <= grid_.maxRows(); ++row)
    grid_.setRowHeight(row, std::max(grid_.tallestText(row), lowestTableRow));
  lowerRows();
  const auto blank = static_cast<float>(std::ceil(textWidth(grid_.font(), " ")));
  for (int col = 1; col <= grid_.maxCols(); ++col)
    grid_.setColWidth(col, grid_.widestText(col) + pixels(blank));
}

void TableDisplay::CopyGraph() { desktop().setClipboard(copyOf(grid_.sheet())); }

}  // namespace tolmer
