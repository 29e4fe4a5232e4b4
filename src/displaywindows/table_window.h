// The window of a table display: one grid that fills it.
#pragma once

#include "displaywindows/display_window.h"
#include "platform/grid/grid.h"

namespace tolmer {

// The cells with the looks that follow from what they are.
Sheet gridSheet(const TableContent& table);

// A table is written anew, whole, by each UpdateDisplay: its content as a sheet, then the sizes of
// rows and columns by the texts and the room in the window.
class TableWindow : public DisplayWindow {
 public:
  TableWindow(Desktop& desktop, AnalysisState& state, DisplayHost& host, const Display& display);

  // All cells, the key included, as text and as HTML, which has the notes on the table below.
  void CopyGraph() override;
  void showRemarks() override;
  void showCases() override;
  void showCells(const std::vector<CellPosition>& cells) override;
  // The grid takes the client area.
  void PositionControls() override;

  const Grid& grid() const { return grid_; }
  Grid& grid() { return grid_; }

 protected:
  void drawDisplay() override;

 private:
  void Form_Resize();
  int caseOf(int row) const;  // 0 where the row tells of none
  void pressRow(int row, ClickKeys held);
  void takeKeys();
  void step(int rows, bool adds);
  void chooseFont();
  void fitRowsAndColumns();
  void lowerFrame();

  Grid grid_;
  TableContent table_;
};

// A row is at least so high where nothing says otherwise.
inline constexpr Twips lowestTableRow = 300;

}  // namespace tolmer
