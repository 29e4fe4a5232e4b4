// Which variables and cases of a table are taken, and what becomes of each column.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "foreign/cut_table.h"

namespace tolmer {

enum class VariableKind { empty, numbers, dates, words };

enum class ColumnUse {
  numbers,  // of a date, the number of its day
  dummies,  // one for each category but the reference
  labels,   // of the cases
  leftOut
};

struct Category {
  std::string value;  // as the cells hold it
  std::string name;   // the file's label of that value, else the value

  friend bool operator==(const Category&, const Category&) = default;
};

// A column as a list of variables shows it.
struct ImportVariable {
  int column = 1;  // its place in the file, from 1
  std::string name{};
  std::string label{};
  VariableKind kind = VariableKind::empty;
  bool isCoded = false;                // the file has a word for each of its numbers
  int values = 0;                      // cells that are neither empty nor missing
  int different = 0;                   // up to mostDifferent
  std::vector<Category> categories{};  // of what was read; empty where no dummies can be made
  std::string reference{};             // the value of one of them
  std::vector<ColumnUse> uses{};       // what can become of it
  ColumnUse use = ColumnUse::numbers;  // what does
};

// "numbers", "codes", "words", "dates" or "empty"
const char* kindWord(const ImportVariable& variable);

struct CaseChoice {
  enum class Way { first, every, where };
  Way way = Way::first;     // of each, no more than there is room for
  int every = 1;            // the first, and each so many-th after it
  std::string condition{};  // "Age >= 18 and Region = North"

  friend bool operator==(const CaseChoice&, const CaseChoice&) = default;
};

// What the user has chosen; without anything, all is taken if it fits.
struct ImportChoice {
  std::optional<std::set<int>> columns{};  // their places in the file, from 1
  std::optional<CaseChoice> cases{};
  std::map<int, ColumnUse> uses{};          // of columns, by their places
  std::map<int, std::string> references{};  // values of categories, likewise

  friend bool operator==(const ImportChoice&, const ImportChoice&) = default;
};

// What a file says of a column that lands, beside its name and numbers.
struct ImportedVariable {
  std::string label{};
  std::vector<ValueLabel> valueLabels{};  // of a dummy: what 1 and 0 mean
  bool isDummy = false;
};

}  // namespace tolmer
