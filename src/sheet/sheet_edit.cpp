#include "sheet/sheet_edit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "formula/rewrite.h"

namespace tolmer {
namespace {

bool sameCell(const DataCell& one, const DataCell& other) {
  if (one.kind != other.kind || one.text != other.text || one.seed != other.seed) return false;
  // The number of a formula is only its result; of a number, -0 is another than 0.
  return one.kind == DataCell::Kind::formula ||
         (one.number == other.number && std::signbit(one.number) == std::signbit(other.number));
}

}  // namespace

std::vector<CellAddress> formulasOf(const SheetContent& content) {
  std::vector<CellAddress> found;
  for (int r = 1; r <= content.observations(); ++r)
    for (int c = 1; c <= content.variables(); ++c)
      if (content.cells(r, c).kind == DataCell::Kind::formula) found.push_back({r, c});
  return found;
}

void SheetEdit::take(SheetStep step) {
  perform(step, state_, change_);
  action_.steps.push_back(std::move(step));
}

void SheetEdit::put(CellAddress at, DataCell cell) {
  if (sameCell(this->cell(at), cell)) return;
  if (at.row == 0) {
    renamings_.push_back({names_, at.column, cell.text});
    names_ = names_.renamed(at.column, cell.text);
  } else if (cell.kind == DataCell::Kind::formula) {
    newFormulas_.push_back(at);
  }
  take(CellStep{at, std::move(cell)});
}

void SheetEdit::respell(CellAddress formula, std::string text) {
  DataCell cell = this->cell(formula);
  if (cell.text == text) return;
  cell.text = std::move(text);
  take(CellStep{formula, std::move(cell)});
}

void SheetEdit::clear(const CellRange& block) {
  for (int r = block.first.row; r <= block.last.row; ++r)
    for (int c = block.first.column; c <= block.last.column; ++c) put({r, c}, {});
}

void SheetEdit::setDecimals(int column, Int16 digits) {
  const Int16 now = column == 0 ? state_.miStdDecDigits : state_.content.decimals[column];
  if (now != digits) take(DecimalsStep{column, digits});
}

void SheetEdit::setTitle(std::string title) {
  if (state_.content.title != title) take(TitleStep{std::move(title)});
}

void SheetEdit::setLabel(int column, std::string label) {
  const std::string& now = column == 0 ? content().source : content().labels[column];
  if (now != label) take(LabelStep{column, std::move(label)});
}

void SheetEdit::reorder(int firstRow, std::vector<std::uint16_t> from) {
  if (!std::ranges::is_sorted(from)) take(RowOrderStep{firstRow, std::move(from)});
}

void SheetEdit::replaceAll(SheetState state) {
  take(WholeStep{std::make_unique<SheetState>(std::move(state))});
}

DataCell SheetEdit::formulaCell(std::string text) {
  DataCell cell{.kind = DataCell::Kind::formula, .text = std::move(text)};
  if (compileFormula(cell.text, names_, 0).randomCalls > 0) cell.seed = seeds_.take();
  return cell;
}

// Spares most formulas the reading: the old name must be in it, or a new one that reads like one of
// its addresses.
bool SheetEdit::Renaming::mayConcern(const std::string& folded) const {
  return std::ranges::any_of(
      std::array{before.headings()[column], newName}, [&](const std::string& name) {
        const std::string part = foldedName(name.substr(0, name.find(']')));  // written doubled
        return !name.empty() && folded.find(part) != std::string::npos;
      });
}

std::string SheetEdit::renamed(std::string text) const {
  std::string folded = foldedName(text);
  for (const Renaming& one : renamings_) {
    if (!one.mayConcern(folded)) continue;
    text = withVariableRenamed(text, one.before, one.column, one.newName);
    folded = foldedName(text);
  }
  return text;
}

void SheetEdit::followRenamings() {
  if (renamings_.empty()) return;
  std::ranges::sort(newFormulas_);
  for (const CellAddress at : formulas())
    if (!std::ranges::binary_search(newFormulas_, at)) respell(at, renamed(cell(at).text));
}

SheetJournal::Action SheetEdit::finish() {
  followRenamings();
  return std::move(action_);
}

}  // namespace tolmer
