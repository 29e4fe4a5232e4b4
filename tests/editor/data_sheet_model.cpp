#include "editor/data_sheet_model.h"

#include <algorithm>

namespace tolmer::test {
namespace {

using Kind = ModelCell::Kind;

}  // namespace

SheetModel::SheetModel(int rows, int columns)
    : cells(static_cast<std::size_t>(rows) + 1,
            std::vector<ModelCell>(static_cast<std::size_t>(columns) + 1)),
      decimals(static_cast<std::size_t>(columns) + 1, 3) {
  at(0, 0) = {.kind = Kind::text, .text = "Label"};
  for (int c = 1; c <= columns; ++c)
    at(0, c) = {.kind = Kind::text, .text = "Var" + std::to_string(c)};
}

bool SheetModel::holds(const ModelCell::Place& place) const {
  return place.row >= 1 && place.row <= rows() && place.column >= 0 && place.column <= columns();
}

// A cell that is asked for while it is being calculated is part of a cycle, and so is wrong every
// cell that asked for it.
SheetModel::Result SheetModel::calculate(int row, int column, Results& results) const {
  const ModelCell& cell = at(row, column);
  if (cell.kind == Kind::empty) return {State::good, 0};
  if (cell.kind == Kind::number) return {State::good, cell.number};
  if (cell.kind == Kind::text || cell.lost) return {State::bad};
  Result& result = results[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
  if (result.state == State::running) return {State::bad};
  if (result.state != State::fresh) return result;
  result.state = State::running;
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

std::vector<std::vector<std::optional<double>>> SheetModel::values() const {
  Results results(cells.size(), std::vector<Result>(cells[0].size()));
  std::vector<std::vector<std::optional<double>>> values(
      cells.size(), std::vector<std::optional<double>>(cells[0].size()));
  for (int r = 1; r <= rows(); ++r)
    for (int c = 0; c <= columns(); ++c) {
      if (at(r, c).kind == Kind::empty) continue;
      const Result result = calculate(r, c, results);
      if (result.state == State::good)
        values[static_cast<std::size_t>(r)][static_cast<std::size_t>(c)] = result.number;
    }
  return values;
}

int SheetModel::lastUsedRow() const {
  int row = rows();
  const auto isEmpty = [](const ModelCell& cell) { return cell.kind == Kind::empty; };
  while (row > 0 && std::ranges::all_of(cells[static_cast<std::size_t>(row)], isEmpty)) --row;
  return row;
}

void SheetModel::insertRows(int first, int count) {
  cells.insert(cells.begin() + first, static_cast<std::size_t>(count),
               std::vector<ModelCell>(cells[0].size()));
  cells.resize(cells.size() - static_cast<std::size_t>(count));
  for (auto& row : cells)
    for (ModelCell& cell : row)
      if (cell.kind == Kind::difference || cell.kind == Kind::maximum) {
        for (auto* place : {&cell.a, &cell.b})
          if (place->row >= first) place->row += count;
        if (cell.kind == Kind::difference)
          cell.lost = cell.lost || !holds(cell.a) || !holds(cell.b);
        else
          cell.lost = cell.lost || !holds(cell.a);
        cell.b.row = std::min(cell.b.row, rows());
      }
}

void SheetModel::deleteRows(int first, int count) {
  cells.erase(cells.begin() + first, cells.begin() + first + count);
  cells.insert(cells.end(), static_cast<std::size_t>(count),
               std::vector<ModelCell>(cells[0].size()));
  const auto isGone = [&](int row) { return row >= first && row < first + count; };
  for (auto& row : cells)
    for (ModelCell& cell : row) {
      if (cell.kind != Kind::difference && cell.kind != Kind::maximum) continue;
      ModelCell::Place &a = cell.a, &b = cell.b;
      if (cell.kind == Kind::difference) {
        cell.lost = cell.lost || isGone(a.row) || isGone(b.row);
      } else {
        cell.lost = cell.lost || (isGone(a.row) && isGone(b.row));
        if (isGone(a.row)) a.row = first + count;
        if (isGone(b.row)) b.row = first - 1;
      }
      for (auto* place : {&a, &b})
        if (place->row >= first + count) place->row -= count;
    }
}

ModelCell SheetModel::moved(ModelCell cell, int rows, int columns) const {
  if (cell.kind != Kind::difference && cell.kind != Kind::maximum) return cell;
  for (auto* place : {&cell.a, &cell.b}) {
    if (!place->fixed) place->row += rows;
    place->column += columns;
    if (!holds(*place)) cell.lost = true;
  }
  if (cell.kind == Kind::maximum && cell.a.row > cell.b.row) std::swap(cell.a, cell.b);
  return cell;
}

bool SheetModel::dependsOnOrder(int row, int column, int lastRow) const {
  const ModelCell& cell = at(row, column);
  if (cell.lost || !cell.isFormula() || cell.kind == Kind::plusOne) return false;
  const bool whole = cell.kind == Kind::maximum && cell.a.fixed && cell.b.fixed;
  if (whole && cell.a.row == 1 && cell.b.row >= lastRow) return false;
  const auto isElsewhere = [&](const ModelCell::Place& place) {
    return place.fixed || place.row != row;
  };
  return isElsewhere(cell.a) || isElsewhere(cell.b);
}

void SheetModel::reorder(const std::vector<int>& order, bool makeValues) {
  SheetModel before = *this;
  const auto values = this->values();
  const int lastRow = static_cast<int>(order.size());
  for (int r = 1; r <= lastRow && makeValues; ++r)
    for (int c = 1; c <= columns(); ++c)
      if (const auto number = values[static_cast<std::size_t>(r)][static_cast<std::size_t>(c)];
          number && dependsOnOrder(r, c, lastRow))
        before.at(r, c) = {.kind = Kind::number, .number = *number};
  for (int r = 1; r <= lastRow; ++r)
    for (int c = 0; c <= columns(); ++c) {
      const int from = order[static_cast<std::size_t>(r) - 1] + 1;
      at(r, c) = moved(before.at(from, c), r - from, 0);
    }
}

}  // namespace tolmer::test
