// A table of the book: rows from 1 to a fixed bound, row 0 empty.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace tolmer {

template <class Record, int maxRows>
class BookTable {
 public:
  static constexpr int bound = maxRows;

  int count() const { return static_cast<int>(rows_.size()) - 1; }
  bool isFull() const { return count() == bound; }

  // Row `index`, 0 to count(). Any other index is a fault of the caller: std::out_of_range.
  Record& operator[](int index) { return rows_.at(static_cast<std::size_t>(index)); }
  const Record& operator[](int index) const { return rows_.at(static_cast<std::size_t>(index)); }

  // The next row, or the same table where it is full: ask isFull first.
  void add(Record record) {
    if (!isFull()) rows_.push_back(std::move(record));
  }

  // Rows 1 to `count`, emptied; `count` is cut to 0..bound.
  void resize(int count) {
    const int kept = count < 0 ? 0 : count > bound ? bound : count;
    rows_.assign(static_cast<std::size_t>(kept) + 1, Record{});
  }

  bool operator==(const BookTable&) const = default;

 private:
  std::vector<Record> rows_ = std::vector<Record>(1);
};

}  // namespace tolmer
