#include "platform/grid/sheet.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace tolmer {

namespace {

const Cell headingCell{.style = {.align = Align::centre,
                                 .heading = true,
                                 .back = colours::buttonFace,
                                 .fore = colours::buttonText}};

}  // namespace

void putNumber(Cell& cell, double number) {
  // The largest double has 309 digits before the point, and a style at most 255 behind it.
  std::array<char, 600> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                 std::chars_format::fixed, cell.style.decimals);
  cell.number = number;
  cell.text.assign(digits.data(), end.ptr);
}

CellBlock blockBetween(CellPosition one, CellPosition other) {
  return {std::min(one.row, other.row), std::min(one.col, other.col), std::max(one.row, other.row),
          std::max(one.col, other.col)};
}

void Sheet::resize(int rows, int cols) {
  Sheet before = std::move(*this);
  rows_ = std::max(rows, 0);
  cols_ = std::max(cols, 0);
  cells_.assign(index(rows_, cols_) + 1, Cell{});
  for (int row = 0; row <= rows_; ++row) at(row, 0) = headingCell;
  for (int col = 0; col <= cols_; ++col) at(0, col) = headingCell;
  const int keptCols = std::min(cols_, before.cols_);
  for (int row = 0; row <= std::min(rows_, before.rows_); ++row)
    for (int col = 0; col <= keptCols; ++col) at(row, col) = std::move(before.at(row, col));
}

CellBlock Sheet::clipped(const CellBlock& block) const {
  return {std::max(block.row, 0), std::max(block.col, 0), std::min(block.row2, rows_),
          std::min(block.col2, cols_)};
}

}  // namespace tolmer
