// What addresses and names in a formula mean: the sheet's size, its cells and its variables.
#pragma once

#include <compare>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/data_limits.h"

namespace tolmer {

// Rows are observations, the first is 1. Column 0 holds the labels and is called A, column 1 is the
// first variable and called B.
struct CellAddress {
  int row;
  int column;

  friend auto operator<=>(const CellAddress&, const CellAddress&) = default;
};

// All cells from the first to the last, both included.
struct CellRange {
  CellAddress first;
  CellAddress last;

  bool holds(CellAddress cell) const {
    return cell.row >= first.row && cell.row <= last.row && cell.column >= first.column &&
           cell.column <= last.column;
  }
  friend auto operator<=>(const CellRange&, const CellRange&) = default;
};

struct SheetSize {
  int rows = editorObservations;
  int variables = editorVariables;

  bool holds(CellAddress cell) const {
    return cell.row >= 1 && cell.row <= rows && cell.column >= 0 && cell.column <= variables;
  }
};

// "A" for 0, "Z" for 25, "AA" for 26.
std::string columnLetters(int column);

// The column of letters in any case; nothing for other text and beyond four letters.
std::optional<int> columnOfLetters(std::string_view letters);

// For comparing names: blanks at both ends gone, letters small, as far as they are Latin, Greek or
// Cyrillic.
std::string foldedName(std::string_view name);

// The names of a sheet's columns. A blank heading is no name.
class SheetNames {
 public:
  enum class Found { none, one, several };
  struct Lookup {
    Found found = Found::none;
    int column = -1;  // of the first so called
  };

  // headings[c] belongs to column c; the list may be shorter than the sheet.
  SheetNames(SheetSize size, std::vector<std::string> headings);

  const SheetSize& size() const { return size_; }
  const std::vector<std::string>& headings() const { return headings_; }
  Lookup lookUp(std::string_view name) const;

  // The same sheet with one heading changed.
  SheetNames renamed(int column, const std::string& heading) const;

 private:
  SheetSize size_;
  std::vector<std::string> headings_;
  std::unordered_map<std::string, Lookup> columns_;
};

}  // namespace tolmer
