#include "report/grid_table.h"

namespace tolmer {

DisplayTable displayTable(const Grid& grid) {
  DisplayTable table;
  const Sheet& sheet = grid.sheet();
  for (int row = 1; row <= sheet.rows(); ++row) {
    auto& cells = table.rows.emplace_back();
    for (int col = 1; col <= sheet.cols(); ++col) {
      const Cell& cell = sheet.at(row, col);
      cells.push_back({cell.text, cell.style.back, cell.style.align});
    }
  }
  return table;
}

}  // namespace tolmer
