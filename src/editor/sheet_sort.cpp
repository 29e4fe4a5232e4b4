#include "editor/sheet_sort.h"

#include <algorithm>
#include <numeric>

#include "editor/sheet_number.h"
#include "formula/sheet_names.h"

namespace tolmer {
namespace {

bool comesBefore(const SortKey& one, const SortKey& other) {
  if (one.rank != other.rank) return one.rank < other.rank;
  return one.rank == SortKey::Rank::number ? one.number < other.number : one.text < other.text;
}

}  // namespace

SortKey sortKey(const DataCell& cell, const CellValue& value) {
  using Rank = SortKey::Rank;
  switch (value.kind) {
    case CellValue::Kind::empty:
      return {};
    case CellValue::Kind::number:
      return {.rank = Rank::number, .number = value.number};
    case CellValue::Kind::error:
      return {.rank = Rank::error, .text = std::string(errorText(value.error))};
    case CellValue::Kind::text:
      break;
  }
  const NumberReading reading = readNumber(cell.text);
  if (reading.kind == NumberReading::Kind::number)
    return {.rank = Rank::number, .number = reading.number};
  return {.rank = Rank::text, .text = foldedName(cell.text)};
}

std::vector<std::uint16_t> sortedOrder(const std::vector<SortKey>& keys, bool ascending) {
  std::vector<std::uint16_t> order(keys.size());
  std::iota(order.begin(), order.end(), std::uint16_t{0});
  std::ranges::stable_sort(order, [&](std::uint16_t left, std::uint16_t right) {
    const SortKey& one = keys[left];
    const SortKey& other = keys[right];
    if (one.rank == SortKey::Rank::blank || other.rank == SortKey::Rank::blank)
      return one.rank < other.rank;
    return ascending ? comesBefore(one, other) : comesBefore(other, one);
  });
  return order;
}

}  // namespace tolmer
