// What the table displays have in common: one grid that fills the window.
#pragma once

#include <string>

#include "displays/display_window.h"
#include "platform/grid/grid.h"

namespace tolmer {

// A table is written anew, whole, by each UpdateDisplay: its content as a sheet, then the sizes of
// rows and columns by the texts and the room in the window.
class TableDisplay : public DisplayWindow {
 public:
  // The title bar shows `title`; the grid is found by `gridName` ("spdANOVA").
  TableDisplay(Desktop& desktop, AnalysisState& state, DisplayHost& host, std::string name,
               std::string title, std::string gridName);

  // All cells, legend rows included, as text and as HTML.
  void CopyGraph() override;
  // The grid takes the client area.
  void PositionControls() override;
  ShownControl shownControl() const override { return &grid_; }

  const Grid& grid() const { return grid_; }
  Grid& grid() { return grid_; }

 protected:
  void drawDisplay() override;
  // All cells with text, alignment and colours, from the analysis state.
  virtual Sheet content() const = 0;
  // Called when all rows have the height of their texts, for rows that are to be lower.
  virtual void lowerRows() {}
  // The last row and column that stay when the others are scrolled.
  virtual CellPosition frozenCorner() const { return {1, 1}; }

 private:
  void Form_Resize();
  void chooseFont();
  void fitRowsAndColumns();

  Grid grid_;
};

// A row is at least so high where nothing says otherwise.
inline constexpr Twips lowestTableRow = 300;

}  // namespace tolmer
