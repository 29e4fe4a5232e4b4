#include "editor/sheet_content.h"

#include <algorithm>

namespace tolmer {

bool isUsed(const SheetContent& content, int row) {
  const DataCell* cells = content.cells.row(row);
  return std::any_of(cells, cells + content.variables() + 1,
                     [](const DataCell& cell) { return cell.kind != DataCell::Kind::empty; });
}

int lastUsedRow(const SheetContent& content) {
  int row = content.observations();
  while (row > 0 && !isUsed(content, row)) --row;
  return row;
}

}  // namespace tolmer
