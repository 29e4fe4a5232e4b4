// What the data editor's sheet holds, apart from how it is shown and edited.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/data_limits.h"
#include "state/analysis_state.h"
#include "state/matrix.h"

namespace tolmer {

// A cell keeps its exact value: never what is shown of it.
struct DataCell {
  enum class Kind : std::uint8_t { empty, number, text, formula };
  Kind kind = Kind::empty;
  std::uint32_t seed = 0;  // of a formula with random functions, whose numbers stay with it; else 0
  double number = 0;       // of a number, and the last result of a formula
  std::string text{};  // a label or heading; the source of a formula with its "="; the text of an
                       // error that stands for a formula's result is the sheet's own affair

  friend bool operator==(const DataCell&, const DataCell&) = default;
};

// Row 0 holds the headings, rows 1..observations the cases; column 0 the labels, columns
// 1..variables the values.
struct SheetContent {
  SheetContent() = default;
  SheetContent(int observations, int variables)
      : cells(observations, variables),
        decimals(static_cast<std::size_t>(variables) + 1, Int16{3}),
        labels(static_cast<std::size_t>(variables) + 1) {}

  int observations() const { return cells.lastRow(); }
  int variables() const { return cells.lastColumn(); }

  Matrix<DataCell> cells;
  std::vector<Int16> decimals;  // (0..variables) digits shown right of the point; element 0 unused
  std::string title;
  std::string source;               // where the data are from; empty where nobody knows
  std::vector<std::string> labels;  // (0..variables) what a variable means, or empty; 0 unused

  friend bool operator==(const SheetContent&, const SheetContent&) = default;
};

// Whether any cell of the row holds something, the label included.
bool isUsed(const SheetContent& content, int row);
// Whether it says more of its data than names and title.
bool isDescribed(const SheetContent& content);
// A title of the user's and the source: "Sold houses. Source: houses.dta (Stata)".
std::string aboutData(const SheetContent& content);
// The last used case; 0 where there is none.
int lastUsedRow(const SheetContent& content);

// With so many decimals, rounded half away from zero from its first 15 digits. Numbers from 1e15 on
// have no decimals of their own and are shown exactly instead.
std::string shownNumber(double number, int decimals);

}  // namespace tolmer
