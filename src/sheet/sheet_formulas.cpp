#include "sheet/sheet_formulas.h"

#include <algorithm>
#include <utility>

namespace tolmer {
namespace {

SheetSize sizeOf(const SheetContent& content) {
  return {content.observations(), content.variables()};
}

// The sheet as the calculator asks for it.
class CurrentCells : public CellSource {
 public:
  explicit CurrentCells(const SheetFormulas& formulas) : formulas_(formulas) {}
  CellValue cellValue(CellAddress cell) const override { return formulas_.valueOf(cell); }

 private:
  const SheetFormulas& formulas_;
};

}  // namespace

SheetNames namesOf(const SheetContent& content) {
  std::vector<std::string> headings;
  for (int c = 0; c <= content.variables(); ++c) headings.push_back(content.cells(0, c).text);
  return {sizeOf(content), std::move(headings)};
}

SheetFormulas::SheetFormulas(SheetContent& content) : content_(content), names_(namesOf(content)) {
  SheetChange change{.all = true};
  follow(change);
}

FormulaError& SheetFormulas::errorAt(CellAddress cell) {
  return errors_[static_cast<std::size_t>(cell.row) *
                     static_cast<std::size_t>(content_.variables() + 1) +
                 static_cast<std::size_t>(cell.column)];
}

const FormulaError& SheetFormulas::errorAt(CellAddress cell) const {
  return const_cast<SheetFormulas*>(this)->errorAt(cell);
}

CellValue SheetFormulas::valueOf(CellAddress cell) const {
  const DataCell& held = content_.cells(cell.row, cell.column);
  if (held.kind == DataCell::Kind::empty) return CellValue::empty();
  if (held.kind == DataCell::Kind::text) return CellValue::ofText(held.text);
  if (held.kind == DataCell::Kind::number) return CellValue::ofNumber(held.number);
  const FormulaError error = errorAt(cell);
  return error == FormulaError::none ? CellValue::ofNumber(held.number) : CellValue::ofError(error);
}

void SheetFormulas::read(CellAddress cell) {
  const DataCell& held = content_.cells(cell.row, cell.column);
  if (held.kind == DataCell::Kind::formula)
    calculator_->setFormula(cell, compileFormula(held.text, names_, held.seed));
  else if (calculator_->formulaAt(cell) != nullptr)
    calculator_->removeFormula(cell);
}

// Names may mean other columns now, so every formula is read again.
void SheetFormulas::readAll() {
  names_ = namesOf(content_);
  calculator_ = std::make_unique<Calculator>(sizeOf(content_));
  errors_.assign(static_cast<std::size_t>(content_.observations() + 1) *
                     static_cast<std::size_t>(content_.variables() + 1),
                 FormulaError::none);
  for (int r = 1; r <= content_.observations(); ++r)
    for (int c = 1; c <= content_.variables(); ++c) read({r, c});
}

void SheetFormulas::follow(SheetChange& change) {
  const bool headings =
      std::ranges::any_of(change.cells, [](CellAddress cell) { return cell.row == 0; });
  if (change.all) {
    readAll();
    calculator_->recalculateAll(CurrentCells(*this), [this](CellAddress cell, FormulaValue value) {
      content_.cells(cell.row, cell.column).number = value.number;
      errorAt(cell) = value.error;
    });
    return;
  }
  if (headings) {
    readAll();
    for (int r = 1; r <= content_.observations(); ++r)
      for (int c = 1; c <= content_.variables(); ++c)
        if (content_.cells(r, c).kind == DataCell::Kind::formula) change.cells.push_back({r, c});
  } else {
    for (const CellAddress cell : change.cells) read(cell);
  }
  calculate(change);
}

void SheetFormulas::calculate(SheetChange& change) {
  std::vector<CellAddress> changed;
  for (const CellAddress cell : change.cells)
    if (cell.row > 0) changed.push_back(cell);
  calculator_->recalculate(changed, CurrentCells(*this), [&](CellAddress cell, FormulaValue value) {
    double& number = content_.cells(cell.row, cell.column).number;
    FormulaError& error = errorAt(cell);
    if (number == value.number && error == value.error) return;
    number = value.number;
    error = value.error;
    change.cells.push_back(cell);
  });
  std::ranges::sort(change.cells);
  change.cells.erase(std::unique(change.cells.begin(), change.cells.end()), change.cells.end());
}

}  // namespace tolmer
