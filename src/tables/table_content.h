// What a table display says, cell by cell, apart from any window: texts, what they are, and what
// they are marked for. Looks and colours follow from that (mark_colours.h).
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/look.h"

namespace tolmer {

enum class CellRole : std::uint8_t {
  empty,
  frame,    // empty, of a row that divides or surrounds the table
  heading,  // names a column or a row
  figure,
  text,
  key,  // tells what a mark means
};

enum class CellMark : std::uint8_t {
  none,
  itself,  // a variable's correlation with itself
  pBelow01,
  pBelow05,
  highVIF,
  outlier,
  beyond2SE,  // residuals of more than so many standard errors
  beyond3SE,
  beyond4SE,
};

struct TableCell {
  std::string text{};
  CellRole role = CellRole::empty;
  CellMark mark = CellMark::none;
  Align align = Align::left;
};

// Whether it has the look of the table's frame, not of its body.
inline bool isFramed(const TableCell& cell) {
  return cell.role == CellRole::frame || cell.role == CellRole::heading ||
         cell.mark == CellMark::itself;
}
// Rows and columns count from 1. The first row holds the headings of the columns.
class TableContent {
 public:
  TableContent() = default;
  TableContent(int rows, int cols)
      : cols_(cols),
        cells_(static_cast<std::size_t>(rows) * static_cast<std::size_t>(cols)),
        cases_(static_cast<std::size_t>(rows)) {}

  int rows() const { return static_cast<int>(cases_.size()); }
  int cols() const { return cols_; }
  TableCell& at(int row, int col) { return cells_[index(row) + static_cast<std::size_t>(col) - 1]; }
  const TableCell& at(int row, int col) const {
    return cells_[index(row) + static_cast<std::size_t>(col) - 1];
  }
  std::span<const TableCell> row(int row) const {
    return std::span(cells_).subspan(index(row), static_cast<std::size_t>(cols_));
  }
  // The case that a row tells of, from 1; 0 where it tells of none.
  int caseOf(int row) const { return cases_[row - 1]; }
  void setCase(int row, int iCase) { cases_[row - 1] = iCase; }

  void heading(int row, int col, std::string text, Align align) {
    at(row, col) = {std::move(text), CellRole::heading, CellMark::none, align};
  }
  // A variable's name, cut to its first ten characters.
  void shortName(int row, int col, const std::string& tName, Align align);
  void text(int row, int col, std::string text, Align align) {
    at(row, col) = {std::move(text), CellRole::text, CellMark::none, align};
  }
  void figure(int row, int col, std::string text, Align align, CellMark mark = CellMark::none) {
    at(row, col) = {std::move(text), CellRole::figure, mark, align};
  }
  // A P with three decimals. Where one reads 0.000, a note says what that means.
  void probability(int row, int col, std::string text, CellMark mark = CellMark::none);
  void frame(int row);
  bool isFrame(int row) const;  // and nothing else

  // The last three rows surround the table; the middle one of them has room for the key.
  static constexpr int rowsBelow = 3;
  void frameRowsBelow();
  bool has(CellMark mark) const;
  // What the mark means, in that column of the key, if some cell bears it.
  void key(int col, CellMark mark, Align align = Align::centre);

  // Only rows for which keep(row) stay.
  template <class Keep>
  void keepRows(Keep keep);

  // Of the names that were cut.
  struct WholeName {
    int row = 0;
    int col = 0;
    std::string tName{};
  };
  std::vector<WholeName> wholeNames{};
  // Lines that stand below the table on paper; its window has no room for them.
  std::vector<std::string> notes{};
  int fixedColumns = 1;  // at the left, stay when the others are scrolled
  int frameShare = 1;    // rows of the frame alone have that part of the height of others
  int partingRow = 0;    // such a row that keeps its height in a table that fills more room

 private:
  std::size_t index(int row) const {
    return (static_cast<std::size_t>(row) - 1) * static_cast<std::size_t>(cols_);
  }

  int cols_ = 0;
  std::vector<TableCell> cells_;
  std::vector<int> cases_;
};

template <class Keep>
void TableContent::keepRows(Keep keep) {
  std::vector<TableCell> cells;
  std::vector<int> cases;
  for (int row = 1; row <= rows(); ++row) {
    if (!keep(row)) continue;
    const auto kept = this->row(row);
    cells.insert(cells.end(), kept.begin(), kept.end());
    cases.push_back(caseOf(row));
  }
  cells_ = std::move(cells);
  cases_ = std::move(cases);
}

}  // namespace tolmer
