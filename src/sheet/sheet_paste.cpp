#include "sheet/sheet_paste.h"

#include <algorithm>

#include "base/sentence_parts.h"
#include "formula/rewrite.h"
#include "sheet/sheet_entry.h"
#include "textimport/typed_number.h"

namespace tolmer {
namespace {

using Kind = DataCell::Kind;

// The rows and columns that hold something, counted from the table's corner.
CellAddress usedSize(const PasteTable& table) {
  CellAddress used{0, 0};
  for (int r = 0; r < table.rows(); ++r)
    for (int c = 0; c < table.columns(); ++c)
      if (table.cells(r, c).kind != Kind::empty) used = {r + 1, std::max(used.column, c + 1)};
  for (std::size_t c = 0; c < table.headings.size(); ++c)
    if (!table.headings[c].empty()) used.column = std::max(used.column, static_cast<int>(c) + 1);
  return used;
}

std::string whyTooLarge(const SheetContent& content, CellAddress at, CellAddress used) {
  const int rows = content.observations() - at.row + 1;
  const int columns = content.variables() - at.column + 1;
  if (used.row > rows)
    return "Nothing was pasted: the block has " + counted(used.row, "row") + ", and from here on " +
           std::to_string(rows) + " will fit.";
  if (used.column > columns)
    return "Nothing was pasted: the block has " + counted(used.column, "column") +
           ", and from here on " + std::to_string(columns) + " will fit.";
  return {};
}

// How often the table goes into the target, down and across: once unless it fills it.
CellAddress repeats(const CellRange& target, const PasteTable& table) {
  const int rows = target.last.row - target.first.row + 1;
  const int columns = target.last.column - target.first.column + 1;
  if (table.rows() == 0 || rows % table.rows() != 0 || columns % table.columns() != 0)
    return {1, 1};
  return {std::max(rows / table.rows(), 1), std::max(columns / table.columns(), 1)};
}

Result<DataCell> typedCell(SheetEdit& edit, CellAddress at, const std::string& text) {
  auto entry = cellFromText(edit, at, text);
  if (!entry) return entry.error();
  return std::move(entry->cell);
}

class Paster {
 public:
  Paster(SheetEdit& edit, const PasteTable& table) : edit_(edit), table_(table) {}

  void pasteHeadings(int column) {
    for (std::size_t i = 0; i < table_.headings.size(); ++i, ++column) {
      const std::string& heading = table_.headings[i];
      if (heading.empty()) continue;
      const std::string before = edit_.cell({0, column}).text;
      edit_.put({0, column}, cellFromText(edit_, {0, column}, heading)->cell);
      pasteLabel(i, column, edit_.cell({0, column}).text != before);
      if (i < table_.dummies.size() && table_.dummies[i]) edit_.setDecimals(column, 0);
    }
  }

  void describe() {
    if (lastUsedRow(edit_.content()) > 0) return;
    if (!table_.source.empty()) edit_.setLabel(0, table_.source);
    if (!table_.title.empty() && edit_.content().title == newTitle) edit_.setTitle(table_.title);
  }

  void pasteAt(CellAddress corner) {
    const SheetContent& content = edit_.content();
    const int rows = std::min(table_.rows(), content.observations() - corner.row + 1);
    const int columns = std::min(table_.columns(), content.variables() - corner.column + 1);
    for (int r = 0; r < rows; ++r)
      for (int c = 0; c < columns; ++c)
        pasteCell(table_.cells(r, c), {corner.row + r, corner.column + c}, corner);
  }
  PasteOutcome outcome{.pasted = true};

 private:
  // What another variable meant is no longer true.
  void pasteLabel(std::size_t i, int column, bool isOther) {
    if (column < 1) return;
    const std::string label = i < table_.labels.size() ? table_.labels[i] : std::string();
    if (isOther || !label.empty()) edit_.setLabel(column, label);
  }

  void pasteCell(const DataCell& from, CellAddress at, CellAddress corner) {
    Result<DataCell> cell = converted(from, at, corner);
    if (cell) return edit_.put(at, std::move(*cell));
    if (outcome.refused++ == 0) outcome.reason = cell.error().message();
  }

  // Formulas that were cut stay as they were.
  Result<DataCell> converted(const DataCell& from, CellAddress at, CellAddress corner) {
    if (from.kind == Kind::formula && !table_.copiedFrom) return typedCell(edit_, at, from.text);
    const CellAddress source = table_.wasCut ? corner : table_.copiedFrom.value_or(corner);
    return copiedCell(edit_, from, at, corner.row - source.row, corner.column - source.column);
  }

  SheetEdit& edit_;
  const PasteTable& table_;
};

}  // namespace

Result<DataCell> copiedCell(SheetEdit& edit, const DataCell& from, CellAddress to, int rows,
                            int columns) {
  if (from.kind == Kind::empty) return DataCell{};
  const bool isValue = to.row > 0 && to.column > 0;
  if (isValue && from.kind == Kind::number)
    return DataCell{.kind = Kind::number, .number = from.number};
  if (isValue && from.kind == Kind::formula)
    return edit.formulaCell(rows == 0 && columns == 0
                                ? from.text
                                : movedFormula(from.text, edit.names(), rows, columns));
  return typedCell(edit, to, from.text.empty() ? exactText(from.number) : from.text);
}

PasteOutcome paste(SheetEdit& edit, const CellRange& target, const PasteTable& table) {
  const CellAddress at = target.first;
  if (std::string why = whyTooLarge(edit.content(), at, usedSize(table)); !why.empty())
    return {.reason = std::move(why)};
  Paster paster(edit, table);
  paster.describe();
  paster.pasteHeadings(at.column);
  const CellAddress times = repeats(target, table);
  for (int r = 0; r < times.row; ++r)
    for (int c = 0; c < times.column; ++c)
      paster.pasteAt({at.row + r * table.rows(), at.column + c * table.columns()});
  if (table.rows() == 0) return std::move(paster.outcome);
  const int columns = std::max(table.columns(), static_cast<int>(table.headings.size()));
  edit.showAt({at,
               {std::min(at.row + times.row * table.rows() - 1, edit.content().observations()),
                std::min(at.column + times.column * columns - 1, edit.content().variables())}});
  return std::move(paster.outcome);
}

}  // namespace tolmer
