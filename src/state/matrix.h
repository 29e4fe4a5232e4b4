// A dense matrix addressed as the state's arrays are: both indices run from 0 to the upper bound.
#pragma once

#include <cstddef>
#include <vector>

namespace tolmer {

template <class Value>
class Matrix {
 public:
  Matrix() = default;
  // Elements (0..lastRow, 0..lastColumn), all of them zero.
  Matrix(int lastRow, int lastColumn) { resize(lastRow, lastColumn); }

  // All contents are lost.
  void resize(int lastRow, int lastColumn) {
    rows_ = lastRow + 1;
    columns_ = lastColumn + 1;
    values_.assign(static_cast<std::size_t>(rows_) * static_cast<std::size_t>(columns_), Value{});
  }

  Value& operator()(int row, int column) { return values_[index(row, column)]; }
  const Value& operator()(int row, int column) const { return values_[index(row, column)]; }

  int lastRow() const { return rows_ - 1; }        // -1 while empty
  int lastColumn() const { return columns_ - 1; }  // -1 while empty
  // The elements of one row lie side by side, column 0 first.
  const Value* row(int index) const { return &values_[this->index(index, 0)]; }
  Value* row(int index) { return &values_[this->index(index, 0)]; }

  friend bool operator==(const Matrix&, const Matrix&) = default;

 private:
  std::size_t index(int row, int column) const {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
           static_cast<std::size_t>(column);
  }

  int rows_ = 0;
  int columns_ = 0;
  std::vector<Value> values_;
};

}  // namespace tolmer
