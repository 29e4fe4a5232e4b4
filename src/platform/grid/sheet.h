// The content of a grid: plain cells in rows and columns.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/look.h"

namespace tolmer {

enum class CellType : std::uint8_t {
  fixed,   // text that the user cannot change
  text,    //
  number,  // shown with the style's decimals
};

struct CellStyle {
  CellType type = CellType::fixed;
  Align align = Align::left;
  bool heading = false;  // set slightly bold, and announced as the heading of its row or column
  std::uint8_t decimals = 0;  // of a number
  Colour back = colours::white;
  Colour fore = colours::black;

  friend bool operator==(const CellStyle&, const CellStyle&) = default;
};

struct Cell {
  CellStyle style;
  std::string text{};              // what is shown, UTF-8, one line
  std::optional<double> number{};  // what a number cell holds; its text is only a picture of it
  // What its colour says, for those who do not see it; lives as long as the program. Such a cell is
  // set slightly bold.
  std::string_view mark{};

  bool isBold() const { return style.heading || !mark.empty(); }

  friend bool operator==(const Cell&, const Cell&) = default;
};

// The number, and its text by the style's decimals in the plain form with a point.
void putNumber(Cell& cell, double number);

struct CellPosition {
  int row = 0;
  int col = 0;
  friend bool operator==(const CellPosition&, const CellPosition&) = default;
};

// The cells from one corner to the other, both inside; row <= row2 and col <= col2.
struct CellBlock {
  int row = 0;
  int col = 0;
  int row2 = 0;
  int col2 = 0;

  bool contains(CellPosition cell) const {
    return row <= cell.row && cell.row <= row2 && col <= cell.col && cell.col <= col2;
  }
  friend bool operator==(const CellBlock&, const CellBlock&) = default;
};

// The block between two corners, given in any order.
CellBlock blockBetween(CellPosition one, CellPosition other);

// Rows and columns count from 1; row 0 and column 0 are the headings beside the cells.
class Sheet {
 public:
  Sheet() { resize(0, 0); }
  Sheet(int rows, int cols) { resize(rows, cols); }

  int rows() const { return rows_; }
  int cols() const { return cols_; }
  // Cells that are in both sizes keep what they hold.
  void resize(int rows, int cols);

  // 0 <= row <= rows() and 0 <= col <= cols().
  Cell& at(int row, int col) { return cells_[index(row, col)]; }
  const Cell& at(int row, int col) const { return cells_[index(row, col)]; }
  bool contains(CellPosition cell) const {
    return cell.row >= 0 && cell.row <= rows_ && cell.col >= 0 && cell.col <= cols_;
  }
  // All cells but the headings.
  CellBlock body() const { return {1, 1, rows_, cols_}; }

  // Calls change(cell) for the cells of the block that exist, row by row.
  template <class Change>
  void change(const CellBlock& block, Change change) {
    const CellBlock inside = clipped(block);
    for (int row = inside.row; row <= inside.row2; ++row)
      for (int col = inside.col; col <= inside.col2; ++col) change(at(row, col));
  }

  friend bool operator==(const Sheet&, const Sheet&) = default;

 private:
  CellBlock clipped(const CellBlock& block) const;
  std::size_t index(int row, int col) const {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(cols_ + 1) +
           static_cast<std::size_t>(col);
  }

  int rows_ = -1;  // before the first resize
  int cols_ = -1;
  std::vector<Cell> cells_;
};

}  // namespace tolmer
