// A table by the names of its columns, for an analysis without a sheet.
#pragma once

#include <cmath>
#include <cstddef>
#include <limits>
#include <map>
#include <string>
#include <vector>

#include "fieldfile/field_reader.h"
#include "textimport/import_choice.h"

namespace tolmer {

// What a column of words has become.
struct DummyColumns {
  std::vector<std::string> names;  // of the dummy variables
  std::vector<Category> categories;
  std::string reference;  // the value of one of these
};

struct NamedTable {
  int rows = 0;
  std::vector<std::string> names;  // of all columns; a nameless one is called after its place
  // Of each column, empty where it is no variable; an empty cell is a gap.
  std::vector<std::vector<TextNumber>> numbers;
  std::vector<std::string> labels;  // of the cases; empty where none were wanted
  std::vector<int> caseNumbers{};   // where some cases were not taken: those of the others, from 1
  std::vector<std::string>
      told{};  // sentences: how it was read, which cases were taken, what dummies are
  std::map<std::string, DummyColumns> dummies{};  // of columns, by their names

  bool isVariable(std::size_t column) const { return !numbers[column].empty(); }
};

inline constexpr TextNumber gapInNumbers{std::numeric_limits<double>::quiet_NaN(),
                                         std::numeric_limits<float>::quiet_NaN()};
inline bool isGap(const TextNumber& number) { return std::isnan(number.written); }

}  // namespace tolmer
