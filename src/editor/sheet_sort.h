// The order of rows by one column.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "editor/sheet_content.h"
#include "formula/formula_value.h"

namespace tolmer {

// What a cell counts as: numbers come before texts, texts before errors of formulas, empty cells
// last whatever the direction. A label that reads as a number counts as one, so that "10" follows
// "9". Texts compare by their small letters, character by character, the same in every country.
struct SortKey {
  enum class Rank : std::uint8_t { number, text, error, blank };
  Rank rank = Rank::blank;
  double number = 0;
  std::string text{};
};

SortKey sortKey(const DataCell& cell, const CellValue& value);

// Element i is the index of the key that comes to place i; equal keys keep their order.
std::vector<std::uint16_t> sortedOrder(const std::vector<SortKey>& keys, bool ascending);

}  // namespace tolmer
