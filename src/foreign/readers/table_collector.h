// Puts together the table of a file while it is read, in bounded memory: the rows that are wanted
// are kept, the others counted.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "foreign/cut_table.h"

namespace tolmer {

// Counts what differs, as far as anybody asks.
class DifferentValues {
 public:
  int count() const { return static_cast<int>(numbers_.size() + texts_.size()); }
  void seeNumber(double number) { see(numbers_, number); }
  // A text by its hash, or by its number in a list of texts.
  void seeText(std::size_t text) { see(texts_, text); }

 private:
  template <class Value>
  void see(std::vector<Value>& seen, Value value) {
    if (count() < mostDifferent && std::find(seen.begin(), seen.end(), value) == seen.end())
      seen.push_back(value);
  }

  std::vector<double> numbers_;
  std::vector<std::size_t> texts_;
};

class TableCollector {
 public:
  explicit TableCollector(const CutRequest& request);

  // A column of a statistics file, which tells them before its rows.
  void describeColumn(CutColumn column);
  // The row that the next fields are in, from 1; rows come in rising order.
  void beginRow(int row, bool hidden = false);

  // `column` counts from 1. A later field in the same place counts instead of an earlier one.
  void putNumber(int column, CutKind kind, double number);
  void putText(int column, CutKind kind, std::string_view text);
  void putMissing(int column, double code);
  void putMissing(int column, std::string_view code);
  // A text that is told later, by its number in a list of texts.
  void putLaterText(int column, std::uint32_t number);

  struct LaterText {
    std::uint32_t number;  // in the list
    std::size_t field;
  };
  const std::vector<LaterText>& laterTexts() const { return later_; }
  void tellText(const LaterText& later, std::string_view text);

  bool hasCells() const { return table_.rowsInAll > 0; }
  CutTable take();

  CutTable& table() { return table_; }

 private:
  std::size_t columnAt(int column);
  bool isWanted(int column) const;
  bool rowIsKept() const;
  // The place of a field to fill, in fields_; none where its row or column is not kept.
  static constexpr std::size_t none = static_cast<std::size_t>(-1);
  std::size_t place(int column, CutKind kind);
  std::uint32_t interned(std::string_view text, std::size_t field);
  void countCode(int column, std::string code);
  std::vector<std::size_t> columnsInOrder() const;
  std::size_t rowEnd(std::size_t row) const;
  void startRow();

  const CutRequest& request_;
  CutTable table_;                          // its columns in the order in which they were seen
  std::vector<DifferentValues> different_;  // of the columns, in that order
  std::vector<std::size_t> columnOf_;       // of a column's number, in table_.columns
  std::vector<CutField> fields_;            // of the kept rows, one after the other
  std::vector<std::uint32_t> fieldColumns_;
  std::vector<std::size_t> rowStarts_;
  std::vector<LaterText> later_;
  std::unordered_map<std::string, std::uint32_t> textNumbers_;
  std::size_t textBytes_ = 0;
  std::size_t firstLostField_ = none;  // its text found no room
  int row_ = 0;
  bool rowHidden_ = false;
  bool rowBegun_ = false;
  bool rowKept_ = false;
};

}  // namespace tolmer
