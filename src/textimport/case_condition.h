// A condition on cases, as it is typed: "Age >= 18 and Region = North".
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"

namespace tolmer {

// A field as conditions see it.
struct ConditionField {
  bool isMissing = true;  // or empty: it meets no comparison
  std::optional<double> number{};
  std::string_view text{};
  std::string_view label{};  // what the file calls that value
};

// Comparisons joined by "and": a variable's name, one of = <> < <= > >=, and a number, a day as
// 2024-03-05, or a word. Names and words may stand in double quotes. Words are compared without
// case and without blanks at their ends.
class CaseCondition {
 public:
  // The error is a sentence on what is wrong. `names` are those of the columns.
  static Result<CaseCondition> of(std::string_view text, const std::vector<std::string>& names);

  // The columns that it looks at, rising, each once.
  std::vector<std::size_t> columns() const;

  // `fieldOf(column)` gives the field of one case.
  template <class FieldOf>
  bool isMetBy(FieldOf fieldOf) const {
    for (const Comparison& comparison : comparisons_)
      if (!comparison.isMetBy(fieldOf(comparison.column))) return false;
    return true;
  }

 private:
  enum class Sign { equal, unequal, less, atMost, greater, atLeast };
  struct Comparison {
    std::size_t column;
    Sign sign;
    std::optional<double> number;
    std::string word;  // folded

    bool isMetBy(const ConditionField& field) const;
  };

  static Result<Comparison> comparisonOf(std::string_view text,
                                         const std::vector<std::string>& names);

  std::vector<Comparison> comparisons_;
};

}  // namespace tolmer
