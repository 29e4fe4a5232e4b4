#include "editor/data_sheet_model.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "formula/sheet_names.h"

namespace tolmer::test {
namespace {

using Kind = ModelCell::Kind;

std::string addressText(const ModelCell::Place& place) {
  return columnLetters(place.column) + (place.fixed ? "$" : "") + std::to_string(place.row);
}
std::string rangeText(const ModelCell::Place& first, const ModelCell::Place& last) {
  return addressText(first) + ":" + addressText(last);
}

}  // namespace

SheetModel::SheetModel(int rows, int columns)
    : decimals(static_cast<std::size_t>(columns) + 1, 3), rows_(rows) {
  nameBlankHeadings(columns);
  put(0, 0, {.kind = Kind::text, .text = "Label"});
}

const ModelCell& SheetModel::at(int row, int column) const {
  static const ModelCell empty;
  const auto found = cells.find({row, column});
  return found == cells.end() ? empty : found->second;
}

void SheetModel::put(int row, int column, ModelCell cell) {
  if (cell.kind == Kind::empty)
    cells.erase({row, column});
  else
    cells.insert_or_assign({row, column}, std::move(cell));
}

std::string SheetModel::formulaText(const ModelCell& cell) const {
  if (cell.lost) return {};
  if (cell.kind == Kind::random) return "=RAND()";
  if (cell.kind == Kind::maximum)
    return "=MAX(" + (cell.turned ? rangeText(cell.b, cell.a) : rangeText(cell.a, cell.b)) + ")";
  if (cell.kind != Kind::difference) return {};
  return "=" + rangeText(cell.a, cell.a) + " - " + rangeText(cell.b, cell.b);
}

bool SheetModel::holds(const ModelCell::Place& place) const {
  return place.row >= 1 && place.row <= rows() && place.column >= 0 && place.column <= columns();
}

// A cell that is asked for while it is being calculated is part of a cycle, and so is wrong every
// cell that asked for it.
SheetModel::Result SheetModel::calculate(int row, int column, Results& results) const {
  using State = Result::State;
  const ModelCell& cell = at(row, column);
  if (cell.kind <= Kind::number) return {State::good, cell.number};
  if (cell.kind == Kind::text || cell.lost) return {State::bad};
  if (cell.kind == Kind::random) return {State::good, cell.number};
  const auto [place, isNew] = results.try_emplace({row, column});
  Result& result = place->second;
  if (!isNew) return result.state == State::running ? Result{State::bad} : result;
  Result found{State::good};
  const auto take = [&](int r, int c) {
    const Result part = calculate(r, c, results);
    if (part.state == State::bad) found.state = State::bad;
    return part.number;
  };
  if (cell.kind == Kind::plusOne) {
    found.number = take(row, cell.a.column) + 1;
  } else if (cell.kind == Kind::difference) {
    const double left = take(cell.a.row, cell.a.column);
    found.number = left - take(cell.b.row, cell.b.column);
  } else {
    bool any = false;
    for (int r = std::min(cell.a.row, cell.b.row); r <= std::max(cell.a.row, cell.b.row); ++r) {
      const Kind kind = at(r, cell.a.column).kind;
      if (kind == Kind::empty || kind == Kind::text) continue;
      const double number = take(r, cell.a.column);
      found.number = any ? std::max(found.number, number) : number;
      any = true;
    }
  }
  return result = found;
}

SheetModel::Values SheetModel::values() const {
  Results results;
  Values values;
  for (const auto& [place, cell] : cells) {
    if (place.first == 0) continue;
    const Result result = calculate(place.first, place.second, results);
    if (result.state == Result::State::good) values.emplace(place, result.number);
  }
  return values;
}

int SheetModel::lastUsedColumn() const {
  int last = 0;
  for (const auto& [place, cell] : cells)
    if (place.first > 0) last = std::max(last, place.second);
  return last;
}

ModelCases SheetModel::cases() const {
  const Values values = this->values();
  const int lastColumn = lastUsedColumn();
  ModelCases cases;
  std::set<int> seen;  // columns that have had content
  for (int r = 1; r <= lastUsedRow(); ++r) {
    std::map<int, double> row;
    for (int c = 1; c <= lastColumn; ++c) {
      if (at(r, c).kind != Kind::empty) seen.insert(c);
      if (const auto value = values.find({r, c}); value != values.end()) row[c] = value->second;
    }
    const std::string& label = at(r, 0).text;
    cases.anyLabel = cases.anyLabel || !label.empty();
    if (row.size() < seen.size()) {
      ++cases.incomplete;
    } else {
      cases.values.push_back(row);
      cases.labels.push_back(label);
    }
  }
  for (int c = 1; c <= lastColumn && !cases.values.empty(); ++c) {
    const auto single = [c](const std::map<int, double>& row) {
      const auto cell = row.find(c);
      return cell == row.end() ? 0 : static_cast<float>(cell->second);
    };
    const float first = single(cases.values[0]);
    cases.anyConstant =
        cases.anyConstant || (first != 0 && std::ranges::all_of(cases.values, [&](const auto& row) {
                                return single(row) == first;
                              }));
  }
  return cases;
}

void SheetModel::nameBlankHeadings(int lastColumn) {
  for (int c = 1; c <= lastColumn; ++c)
    if (at(0, c).kind == Kind::empty)
      put(0, c, {.kind = Kind::text, .text = "Var" + std::to_string(c)});
}

// Cells of rows from first on; those that come to row 0 or below the sheet are gone.
template <class NewRow>
void SheetModel::moveRows(int first, NewRow newRow) {
  const std::map<Place, ModelCell> before = std::move(cells);
  cells.clear();
  for (const auto& [place, cell] : before) {
    const int row = place.first < first ? place.first : newRow(place.first);
    if (place.first < first || (row > 0 && row <= rows_)) cells[{row, place.second}] = cell;
  }
}

void SheetModel::insertRows(int first, int count) {
  moveRows(first, [&](int row) { return row + count; });
  for (auto& [place, cell] : cells)
    if (cell.refersToRows()) {
      for (auto* end : {&cell.a, &cell.b})
        if (end->row >= first) end->row += count;
      cell.lost = cell.lost || !holds(cell.a) || (cell.kind == Kind::difference && !holds(cell.b));
      cell.b.row = std::min(cell.b.row, rows());
    }
}

void SheetModel::deleteRows(int first, int last) {
  if (first == 0) std::erase_if(cells, [](const auto& cell) { return cell.first.first == 0; });
  first = std::max(first, 1);
  const int count = last - first + 1;
  const auto isGone = [&](int row) { return row >= first && row <= last; };
  moveRows(first, [&](int row) { return isGone(row) ? 0 : row - count; });
  for (auto& [place, cell] : cells) {
    if (!cell.refersToRows()) continue;
    ModelCell::Place &a = cell.a, &b = cell.b;
    if (cell.kind == Kind::difference) {
      cell.lost = cell.lost || isGone(a.row) || isGone(b.row);
    } else {
      cell.lost = cell.lost || (isGone(a.row) && isGone(b.row));
      if (isGone(a.row)) a.row = last + 1;
      if (isGone(b.row)) b.row = first - 1;
    }
    for (auto* end : {&a, &b})
      if (end->row > last) end->row -= count;
  }
}

ModelCell SheetModel::moved(ModelCell cell, int rows, int columns) const {
  if (!cell.refersToRows()) return cell;
  for (auto* end : {&cell.a, &cell.b}) {
    if (!end->fixed) end->row += rows;
    end->column += columns;
    if (!holds(*end)) cell.lost = true;
  }
  if (cell.kind == Kind::maximum && cell.a.row > cell.b.row) {
    std::swap(cell.a, cell.b);
    cell.turned = !cell.turned;
  }
  return cell;
}

bool SheetModel::dependsOnOrder(const Place& at, const ModelCell& cell, int lastRow) const {
  if (cell.lost || !cell.refersToRows()) return false;
  const bool whole = cell.kind == Kind::maximum && cell.a.fixed && cell.b.fixed;
  if (whole && cell.a.row == 1 && cell.b.row >= lastRow) return false;
  const auto isElsewhere = [&](const ModelCell::Place& end) {
    return end.fixed || end.row != at.first;
  };
  return isElsewhere(cell.a) || isElsewhere(cell.b);
}

void SheetModel::reorder(const std::vector<int>& order) {
  const int lastRow = static_cast<int>(order.size());
  const Values values = this->values();
  SheetModel before = *this;
  for (auto& [place, cell] : before.cells)
    if (const auto value = values.find(place);
        value != values.end() && dependsOnOrder(place, cell, lastRow))
      cell = {.kind = Kind::number, .number = value->second};
  for (int r = 1; r <= lastRow; ++r)
    for (int c = 0; c <= columns(); ++c) {
      const int from = order[static_cast<std::size_t>(r) - 1] + 1;
      put(r, c, moved(before.at(from, c), r - from, 0));
    }
}

}  // namespace tolmer::test
