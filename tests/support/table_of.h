#pragma once

#include <vector>

#include "tables/table_content.h"

namespace tolmer::test {

// A table of these cells.
inline TableContent tableOf(const std::vector<std::vector<TableCell>>& rows) {
  TableContent table(static_cast<int>(rows.size()), static_cast<int>(rows.front().size()));
  for (int row = 1; row <= table.rows(); ++row)
    for (int col = 1; col <= table.cols(); ++col)
      table.at(row, col) =
          rows[static_cast<std::size_t>(row) - 1][static_cast<std::size_t>(col) - 1];
  return table;
}

inline TableCell head(const char* text, Align align = Align::left) {
  return {text, CellRole::heading, CellMark::none, align};
}
inline TableCell word(const char* text, CellMark mark = CellMark::none) {
  return {text, CellRole::text, mark, Align::centre};
}
inline TableCell figure(const char* text, CellMark mark = CellMark::none) {
  return {text, CellRole::figure, mark, Align::centre};
}
inline TableCell key(const char* text, CellMark mark) { return {text, CellRole::key, mark}; }
inline const TableCell frame{"", CellRole::frame};

}  // namespace tolmer::test
