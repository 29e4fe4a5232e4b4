// The sheet as simply as it can be told: cells with values and formulas as structures, everything
// calculated anew whenever it is asked for.
#pragma once

#include <optional>
#include <random>
#include <string>
#include <vector>

namespace tolmer::test {

struct ModelCell {
  enum class Kind { empty, number, text, difference, maximum, plusOne };
  struct Place {
    int row = 0, column = 0;
    bool fixed = false;  // "$" before the row
  };

  Kind kind = Kind::empty;
  double number = 0;
  std::string text{};
  Place a{}, b{};     // difference: a - b; maximum: of a to b in one column; plusOne: column a
  bool lost = false;  // a reference is gone for good

  bool isFormula() const { return kind >= Kind::difference; }
};

class SheetModel {
 public:
  SheetModel(int rows, int columns);

  int rows() const { return static_cast<int>(cells.size()) - 1; }
  int columns() const { return static_cast<int>(cells[0].size()) - 1; }
  ModelCell& at(int row, int column) {
    return cells[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
  }
  const ModelCell& at(int row, int column) const {
    return cells[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
  }
  // Of every cell; nothing for headings, empty cells, texts and errors.
  std::vector<std::vector<std::optional<double>>> values() const;
  int lastUsedRow() const;

  void insertRows(int first, int count);
  void deleteRows(int first, int count);
  // The copy of a cell that lands so much further down and to the right.
  ModelCell moved(ModelCell cell, int rows, int columns) const;
  bool dependsOnOrder(int row, int column, int lastRow) const;
  // Row i + 1 takes what row order[i] + 1 held.
  void reorder(const std::vector<int>& order, bool makeValues);

  std::vector<std::vector<ModelCell>> cells;
  std::vector<int> decimals;
  int standard = 3;
  std::string title = "User Supplied Data";

 private:
  enum class State { fresh, running, good, bad };
  struct Result {
    State state = State::fresh;
    double number = 0;
  };
  using Results = std::vector<std::vector<Result>>;
  Result calculate(int row, int column, Results& results) const;
  bool holds(const ModelCell::Place& place) const;
};

}  // namespace tolmer::test
