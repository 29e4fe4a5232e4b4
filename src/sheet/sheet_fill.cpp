#include "sheet/sheet_fill.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include "base/data_limits.h"
#include "sheet/sheet_paste.h"
#include "textimport/typed_number.h"

namespace tolmer {
namespace {

constexpr double sameDistance = 1e-9;  // of the larger end, since 0.3 - 0.2 is not 0.2 - 0.1

int rowsOf(const CellRange& block) { return block.last.row - block.first.row + 1; }
int columnsOf(const CellRange& block) { return block.last.column - block.first.column + 1; }

// Numbers at equal distances, in the decimals they are written with: after 0.1 and 0.2 comes 0.3 to
// the last bit.
struct Series {
  double first;
  double step;
  int decimals;  // -1: more than can be written plainly

  double at(int index) const {
    const double number = first + step * index;
    return decimals < 0 ? number : readNumber(shownNumber(number, decimals)).number;
  }
};

int decimalsOf(const std::vector<double>& numbers) {
  int decimals = 0;
  for (const double number : numbers) {
    const std::string text = exactText(number);
    if (text.find('e') != std::string::npos) return -1;
    const auto point = text.find('.');
    if (point != std::string::npos)
      decimals = std::max(decimals, static_cast<int>(text.size() - point) - 1);
  }
  return decimals <= maxDecimals ? decimals : -1;
}

std::optional<Series> seriesOf(const std::vector<double>& numbers) {
  if (numbers.size() < 2) return std::nullopt;
  const double first = numbers.front();
  const double step = (numbers.back() - first) / static_cast<double>(numbers.size() - 1);
  const double allowed = sameDistance * std::max(std::fabs(first), std::fabs(numbers.back()));
  for (std::size_t i = 0; i < numbers.size(); ++i)
    if (!(std::fabs(numbers[i] - (first + step * static_cast<double>(i))) <= allowed))
      return std::nullopt;
  return Series{first, step, decimalsOf(numbers)};
}

std::optional<double> numberIn(const DataCell& cell) {
  if (cell.kind == DataCell::Kind::number) return cell.number;
  if (cell.kind != DataCell::Kind::text) return std::nullopt;
  const NumberReading reading = readNumber(cell.text);
  const bool isPlain = reading.kind == NumberReading::Kind::number &&
                       exactText(reading.number) == cell.text;  // "007" is none
  return isPlain ? std::optional(reading.number) : std::nullopt;
}

// A direction as steps from cell to cell.
struct Along {
  int row;
  int column;
  CellAddress from(CellAddress at, int steps) const {
    return {at.row + row * steps, at.column + column * steps};
  }
};

class Filler {
 public:
  Filler(SheetEdit& edit, Along along, int count) : edit_(edit), along_(along), count_(count) {}

  // The line that begins there, over so many steps before and behind it.
  void fillLine(CellAddress start, int before, int behind) {
    const auto series = seriesFrom(start);
    for (int i = -before; i < count_ + behind; ++i) {
      if (i >= 0 && i < count_) continue;
      const CellAddress to = along_.from(start, i);
      const int source = ((i % count_) + count_) % count_;
      if (series)
        put(to,
            copiedCell(edit_, {.kind = DataCell::Kind::number, .number = series->at(i)}, to, 0, 0));
      else
        put(to, copiedCell(edit_, DataCell(edit_.cell(along_.from(start, source))), to,
                           along_.row * (i - source), along_.column * (i - source)));
    }
  }

  FillOutcome outcome;

 private:
  std::optional<Series> seriesFrom(CellAddress start) const {
    std::vector<double> numbers;
    for (int i = 0; i < count_; ++i) {
      const auto number = numberIn(edit_.cell(along_.from(start, i)));
      if (!number) return std::nullopt;
      numbers.push_back(*number);
    }
    return seriesOf(numbers);
  }

  void put(CellAddress to, Result<DataCell> cell) {
    if (cell) return edit_.put(to, std::move(*cell));
    if (outcome.refused++ == 0) outcome.reason = cell.error().message();
  }

  SheetEdit& edit_;
  Along along_;
  int count_;
};

}  // namespace

FillOutcome fill(SheetEdit& edit, const CellRange& from, const CellRange& to) {
  if (rowsOf(to) > rowsOf(from)) {
    Filler filler(edit, {1, 0}, rowsOf(from));
    for (int c = from.first.column; c <= from.last.column; ++c)
      filler.fillLine({from.first.row, c}, from.first.row - to.first.row,
                      to.last.row - from.last.row);
    return std::move(filler.outcome);
  }
  Filler filler(edit, {0, 1}, columnsOf(from));
  for (int r = from.first.row; r <= from.last.row; ++r)
    filler.fillLine({r, from.first.column}, from.first.column - to.first.column,
                    to.last.column - from.last.column);
  return std::move(filler.outcome);
}

}  // namespace tolmer
