// The editor's sheet as simply as it can be told: cells with values and formulas as structures,
// everything calculated anew whenever it is asked for.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tolmer::test {

struct ModelCell {
  enum class Kind { empty, number, text, random, difference, maximum, plusOne };
  struct Place {
    int row = 0, column = 0;
    bool fixed = false;  // "$" before the row
    friend bool operator==(const Place&, const Place&) = default;
  };

  Kind kind = Kind::empty;
  double number = 0;  // of a random one as it was first seen; not a number until then
  std::string text{};
  Place a{}, b{};  // difference: a - b; maximum: of a down to b in one column; plusOne: column a
  bool turned = false;  // the range is written from b to a
  bool lost = false;    // a reference is gone for good

  bool isFormula() const { return kind >= Kind::random; }
  bool refersToRows() const { return kind == Kind::difference || kind == Kind::maximum; }
};

// What the host reads after OK.
struct ModelCases {
  std::vector<std::map<int, double>> values;
  std::vector<std::string> labels;
  int incomplete = 0;
  bool anyLabel = false;
  bool anyConstant = false;  // a variable with one value other than 0
};

// Row 0 are headings, column 0 labels. Cells that are not in the map are empty.
class SheetModel {
 public:
  using Place = std::pair<int, int>;  // row, column
  using Values = std::map<Place, double>;

  SheetModel(int rows, int columns);

  int rows() const { return rows_; }
  int columns() const { return static_cast<int>(decimals.size()) - 1; }
  const ModelCell& at(int row, int column) const;
  void put(int row, int column, ModelCell cell);
  // As it is typed; nothing for a plusOne and what has lost a reference.
  std::string formulaText(const ModelCell& cell) const;
  // Of all cells that have one: not of headings, texts and errors.
  Values values() const;
  int lastUsedRow() const { return cells.empty() ? 0 : std::max(cells.rbegin()->first.first, 0); }
  int lastUsedColumn() const;
  ModelCases cases() const;

  void nameBlankHeadings(int lastColumn);
  void insertRows(int first, int count);
  // From row 0 on the headings lose their texts, too.
  void deleteRows(int first, int last);
  // The copy of a cell that lands so much further down and to the right.
  ModelCell moved(ModelCell cell, int rows, int columns) const;
  // Row i + 1 takes what row order[i] + 1 held. Formulas that depend on the order become values.
  void reorder(const std::vector<int>& order);

  std::map<Place, ModelCell> cells;
  std::vector<int> decimals;
  int standard = 3;
  std::string title = "User Supplied Data";
  std::string file{};

 private:
  struct Result {
    enum class State { running, good, bad } state = State::running;
    double number = 0;
  };
  using Results = std::map<Place, Result>;
  Result calculate(int row, int column, Results& results) const;
  bool holds(const ModelCell::Place& place) const;
  bool dependsOnOrder(const Place& at, const ModelCell& cell, int lastRow) const;
  template <class NewRow>
  void moveRows(int first, NewRow newRow);

  int rows_;
};

}  // namespace tolmer::test
