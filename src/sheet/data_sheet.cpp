#include "sheet/data_sheet.h"

#include <algorithm>
#include <utility>

#include "base/data_limits.h"
#include "base/tabbed_text.h"
#include "base/trimmed.h"
#include "formula/rewrite.h"
#include "sheet/new_sheet.h"
#include "sheet/sheet_content.h"
#include "sheet/sheet_entry.h"
#include "textimport/typed_number.h"

namespace tolmer {
namespace {

// What a cell shows to others in all its digits.
std::string exactTextOf(const DataCell& cell, const CellValue& value) {
  if (cell.kind != DataCell::Kind::formula) return editText(cell);
  if (value.kind == CellValue::Kind::error) return std::string(errorText(value.error));
  return exactText(value.number);
}

std::string shownOrExact(std::string shown, std::string exact) {
  const NumberReading reading = readNumber(shown);
  const bool isWhole =
      reading.kind == NumberReading::Kind::number && reading.number == readNumber(exact).number;
  return isWhole ? std::move(shown) : std::move(exact);
}

// The lines of all spans, in their order in the sheet; nothing where two have one in common.
std::optional<std::vector<int>> linesOf(std::vector<std::pair<int, int>> spans) {
  std::ranges::sort(spans);
  std::vector<int> lines;
  for (const auto& [first, last] : spans) {
    if (!lines.empty() && first <= lines.back()) return std::nullopt;
    for (int line = first; line <= last; ++line) lines.push_back(line);
  }
  return lines;
}

std::pair<int, int> rowSpan(const CellRange& block) { return {block.first.row, block.last.row}; }
std::pair<int, int> columnSpan(const CellRange& block) {
  return {block.first.column, block.last.column};
}

Int16 withinDecimals(Int16 digits) { return std::clamp(digits, Int16{0}, maxDecimals); }

// A name that comes may be another column's too: formulas still mean the columns they meant.
void nameBlanks(SheetContent& content) {
  for (int c = 0; c <= content.variables(); ++c) {
    if (!trimmed(content.cells(0, c).text).empty()) continue;
    const SheetNames names = namesOf(content);
    const std::string name = defaultHeading(c, content.variables());
    for (const CellAddress at : formulasOf(content)) {
      std::string& text = content.cells(at.row, at.column).text;
      text = withVariableRenamed(text, names, c, name);
    }
    content.cells(0, c) = {.kind = DataCell::Kind::text, .text = name};
  }
}

// A content of the sheet's own size, named and formatted throughout.
SheetContent fitted(const SheetContent& given, int observations, int variables) {
  SheetContent content = newContent(observations, variables);
  const int columns = std::min(variables, given.variables());
  for (int r = 0; r <= std::min(observations, given.observations()); ++r)
    for (int c = 0; c <= columns; ++c) content.cells(r, c) = given.cells(r, c);
  for (std::size_t c = 1; c <= static_cast<std::size_t>(columns); ++c)
    content.decimals[c] = withinDecimals(given.decimals[c]);
  content.title = given.title;
  content.source = given.source;
  std::copy_n(given.labels.begin(), columns + 1, content.labels.begin());
  nameBlanks(content);
  return content;
}

std::uint32_t highestSeed(const SheetContent& content) {
  std::uint32_t highest = 0;
  for (int r = 1; r <= content.observations(); ++r)
    for (int c = 1; c <= content.variables(); ++c)
      highest = std::max(highest, content.cells(r, c).seed);
  return highest;
}

}  // namespace

DataSheet::DataSheet(int observations, int variables, std::uint32_t firstSeed)
    : state_{.content = newContent(observations, variables)}, seeds_{firstSeed} {
  startVisit();
}

std::optional<double> DataSheet::value(int row, int col) const {
  if (row == 0) return std::nullopt;
  const CellValue value = formulas_.valueOf({row, col});
  return value.kind == CellValue::Kind::number ? std::optional(value.number) : std::nullopt;
}

std::string DataSheet::shownText(int row, int col) const {
  if (const auto number = value(row, col)) return shownNumber(*number, decimals(col));
  const DataCell& held = cell(row, col);
  return held.kind == DataCell::Kind::formula ? exactTextOf(held, formulas_.valueOf({row, col}))
                                              : held.text;
}

std::string DataSheet::editText(int row, int col) const { return tolmer::editText(cell(row, col)); }

int DataSheet::lastUsedColumn() const {
  int last = 0;
  for (int r = 1; r <= observations(); ++r)
    for (int c = variables(); c > last; --c)
      if (cell(r, c).kind != DataCell::Kind::empty) last = c;
  return last;
}

CellRange DataSheet::clipped(const CellRange& block) const {
  return {{std::max(block.first.row, 0), std::max(block.first.column, 0)},
          {std::min(block.last.row, observations()), std::min(block.last.column, variables())}};
}

SheetEdit DataSheet::beginEdit(std::string_view name) {
  return {state_, formulas_.names(), seeds_, name};
}

void DataSheet::commit(SheetEdit& edit, WithoutSteps emptyEdit) {
  SheetJournal::Action action = edit.finish();
  if (action.steps.empty() && emptyEdit == WithoutSteps::marks) markChanged();
  journal_.add(std::move(action));
  follow(std::move(edit.change()));
}

void DataSheet::follow(SheetChange change) {
  if (change.empty()) return;
  formulas_.follow(change);
  if (Changed) Changed(change);
}

void DataSheet::markChanged() {
  touched_ = true;
  journal_.seal();
}

void DataSheet::markNeverSaved() {
  neverSaved_ = true;
  markChanged();
}

EntryOutcome DataSheet::enter(int row, int col, std::string_view typed) {
  SheetEdit edit = beginEdit("Typing");
  Result<CellEntry> entry = cellFromText(edit, {row, col}, typed);
  if (!entry) return {false, entry.error().message()};
  edit.put({row, col}, std::move(entry->cell));
  edit.showAt({{row, col}, {row, col}});
  commit(edit);
  return {.taken = std::move(entry->taken)};
}

void DataSheet::clear(std::span<const CellRange> blocks) {
  SheetEdit edit = beginEdit("Delete");
  for (const CellRange& block : blocks) {
    edit.clear(clipped(block));
    edit.showAt(clipped(block));
  }
  commit(edit, WithoutSteps::marks);
}

CopiedBlock DataSheet::copyOf(std::vector<int> rows, std::vector<int> columns) const {
  CopiedBlock copied;
  const int lastRow = static_cast<int>(rows.size()) - 1;
  const int lastColumn = static_cast<int>(columns.size()) - 1;
  copied.table.cells.resize(lastRow, lastColumn);
  copied.texts.resize(lastRow, lastColumn);
  for (int i = 0; i <= lastRow; ++i)
    for (int j = 0; j <= lastColumn; ++j) {
      const int r = rows[i];
      const int c = columns[j];
      const DataCell& held = cell(r, c);
      copied.table.cells(i, j) = held;
      std::string exact = r == 0 ? held.text : exactTextOf(held, formulas_.valueOf({r, c}));
      copied.exactText += tabbedCell(exact) + (j < lastColumn ? '\t' : '\n');
      copied.texts(i, j) = shownOrExact(shownText(r, c), std::move(exact));
    }
  copied.rows = std::move(rows);
  copied.columns = std::move(columns);
  return copied;
}

CopiedBlock DataSheet::copy(const CellRange& block) const {
  const CellRange from = clipped(block);
  CopiedBlock copied = copyOf(*linesOf({rowSpan(from)}), *linesOf({columnSpan(from)}));
  copied.table.copiedFrom = from.first;
  return copied;
}

std::optional<CopiedBlock> DataSheet::copy(std::span<const CellRange> blocks) const {
  if (blocks.size() == 1) return copy(blocks.front());
  std::vector<std::pair<int, int>> rows, columns;
  for (const CellRange& block : blocks) {
    rows.push_back(rowSpan(clipped(block)));
    columns.push_back(columnSpan(clipped(block)));
  }
  const bool sideBySide = std::ranges::count(rows, rows[0]) == std::ssize(rows);
  if (!sideBySide && std::ranges::count(columns, columns[0]) != std::ssize(columns))
    return std::nullopt;
  (sideBySide ? rows : columns).resize(1);
  auto rowLines = linesOf(std::move(rows)), columnLines = linesOf(std::move(columns));
  if (!rowLines || !columnLines) return std::nullopt;
  CopiedBlock copied = copyOf(std::move(*rowLines), std::move(*columnLines));
  for (int i = 0; i <= copied.table.cells.lastRow(); ++i)
    for (int j = 0; j <= copied.table.cells.lastColumn(); ++j) {
      DataCell& held = copied.table.cells(i, j);
      if (held.kind != DataCell::Kind::formula) continue;
      const CellAddress at{copied.rows[i], copied.columns[j]};
      const CellValue value = formulas_.valueOf(at);
      held = value.kind == CellValue::Kind::number
                 ? DataCell{.kind = DataCell::Kind::number, .number = value.number}
                 : DataCell{.kind = DataCell::Kind::text, .text = exactTextOf(held, value)};
    }
  return copied;
}

CopiedBlock DataSheet::cut(const CellRange& block) {
  CopiedBlock copied = copy(block);
  copied.table.wasCut = true;
  SheetEdit edit = beginEdit("Cut");
  edit.clear(clipped(block));
  edit.showAt(clipped(block));
  commit(edit, WithoutSteps::marks);
  return copied;
}

PasteOutcome DataSheet::paste(const CellRange& target, const PasteTable& table) {
  SheetEdit edit = beginEdit("Paste");
  PasteOutcome outcome = tolmer::paste(edit, clipped(target), table);
  commit(edit, outcome.pasted ? WithoutSteps::marks : WithoutSteps::isNothing);
  return outcome;
}

FillOutcome DataSheet::fill(const CellRange& from, const CellRange& to) {
  SheetEdit edit = beginEdit("Fill");
  FillOutcome outcome = tolmer::fill(edit, clipped(from), clipped(to));
  edit.showAt(clipped(to));
  commit(edit, WithoutSteps::marks);
  return outcome;
}

ReplaceOutcome DataSheet::replace(const FindWords& words, const std::string& by,
                                  std::span<const CellAddress> cells) {
  SheetEdit edit = beginEdit("Replace");
  ReplaceOutcome outcome = tolmer::replace(edit, words, by, cells);
  commit(edit);
  return outcome;
}

void DataSheet::nameBlankHeadings() {
  const bool kept = journal_.atKept();
  SheetEdit edit = beginEdit("Column Names");
  const int lastColumn = lastUsedColumn();
  for (int c = 1; c <= lastColumn; ++c)
    if (heading(c).empty())
      edit.put({0, c}, {.kind = DataCell::Kind::text, .text = exitHeading(c, variables())});
  commit(edit);
  if (kept) journal_.keep();
}

int DataSheet::insertRows(int first, int last) {
  SheetEdit edit = beginEdit("Insert Row");
  const int pushedOut = tolmer::insertRows(edit, first, std::min(last, observations()));
  edit.showAt(clipped({{first, 0}, {last, variables()}}));
  commit(edit, WithoutSteps::marks);
  return pushedOut;
}

void DataSheet::deleteRows(int first, int last) {
  const CellRange block{{first, 0}, {last, variables()}};
  deleteRows({&block, 1});
}

void DataSheet::deleteRows(std::span<const CellRange> blocks) {
  std::vector<bool> goes(static_cast<std::size_t>(observations()) + 1);
  SheetEdit edit = beginEdit("Delete Row");
  for (const CellRange& block : blocks) {
    const auto [first, last] = rowSpan(clipped(block));
    std::fill(goes.begin() + first, goes.begin() + last + 1, true);
    edit.showAt({{first, 0}, {last, variables()}});
  }
  // From below, so that the rows above keep their numbers.
  for (int last = observations(); last >= 0; --last) {
    if (!goes[last]) continue;
    int first = last;
    while (first > 0 && goes[first - 1]) --first;
    tolmer::deleteRows(edit, first, last);
    last = first;
  }
  commit(edit, WithoutSteps::marks);
}

int DataSheet::orderDependentFormulas() const {
  return static_cast<int>(
      tolmer::orderDependentFormulas(content(), formulas_.names(), lastUsedRow()).size());
}

void DataSheet::sort(int keyColumn, bool ascending) {
  std::vector<SortKey> keys;
  const int lastRow = lastUsedRow();
  for (int r = 1; r <= lastRow; ++r)
    keys.push_back(sortKey(cell(r, keyColumn), formulas_.valueOf({r, keyColumn})));
  SheetEdit edit = beginEdit("Sort");
  sortRows(edit, keys, ascending, formulas_);
  edit.showAt({{1, 0}, {lastRow, variables()}});
  commit(edit, WithoutSteps::marks);
}

void DataSheet::setDecimals(int col, Int16 digits) {
  std::vector<Int16> all = content().decimals;
  all[col] = digits;
  setAllDecimals(all);
}

void DataSheet::setAllDecimals(std::span<const Int16> digits) {
  SheetEdit edit = beginEdit("Format");
  for (int c = 1; c <= variables(); ++c) edit.setDecimals(c, withinDecimals(digits[c]));
  commit(edit, WithoutSteps::marks);
}

void DataSheet::setStandardDecimals(Int16 digits, bool allColumns) {
  digits = withinDecimals(digits);
  SheetEdit edit = beginEdit("Format");
  for (int c = 1; c <= variables(); ++c) {
    if (variables() == 4 && c == binaryVariable) continue;
    if (allColumns || decimals(c) == miStdDecDigits()) edit.setDecimals(c, digits);
  }
  edit.setDecimals(0, digits);
  commit(edit, WithoutSteps::marks);
}

void DataSheet::setTitle(std::string title) {
  SheetEdit edit = beginEdit("Title");
  edit.setTitle(std::move(title));
  // The step kept first goes all the way back; a later one says nothing that the sheet does not.
  if (journal_.continues("Title")) {
    edit.finish();
    follow(std::move(edit.change()));
  } else {
    commit(edit);
  }
}

void DataSheet::setLabel(int col, std::string label) {
  SheetEdit edit = beginEdit("Label");
  edit.setLabel(col, std::move(label));
  edit.showAt({{0, col}, {0, col}});
  commit(edit);
}

void DataSheet::startOver(int observations, int variables) {
  visitStart_ = {.content = newContent(observations, variables)};
  visitStartUnsaved_ = false;
  restoreVisitStart();
}

void DataSheet::clearAll() { replaceAll("New", newContent(observations(), variables()), {}); }

void DataSheet::replaceWith(const SheetContent& content, std::string fileName) {
  replaceAll("Open", fitted(content, observations(), variables()), std::move(fileName));
}

void DataSheet::takeOver(const SheetContent& content, std::string name) {
  SheetContent taken = fitted(content, observations(), variables());
  auto from = std::make_shared<const TakenData>(TakenData{std::move(name), taken});
  replaceAll("Edit a Copy", std::move(taken), {}, std::move(from));
}

std::optional<DataCopy> DataSheet::dataCopy() const {
  if (!state_.takenFrom) return {};
  const SheetContent& there = state_.takenFrom->content;
  DataCopy copy{.of = state_.takenFrom->name};
  const auto textOf = [](const std::optional<double>& number) {
    return number ? exactText(*number) : std::string("none");
  };
  const int lastRow = std::max(lastUsedRow(), tolmer::lastUsedRow(there));
  for (int r = 1; r <= lastRow; ++r)
    for (int c = 1; c <= variables(); ++c) {
      const DataCell& before = there.cells(r, c);
      std::optional<double> was;
      if (before.kind == DataCell::Kind::number) was = before.number;
      const auto is = value(r, c);
      if (is == was) continue;
      if (copy.differing++ == 0)
        copy.first = heading(c) + " of case " + std::to_string(r) + " (" + textOf(is) +
                     " in place of " + textOf(was) + ")";
      if (copy.rows.empty() || copy.rows.back() != r) copy.rows.push_back(r);
    }
  return copy;
}

void DataSheet::replaceAll(std::string_view name, SheetContent content, std::string fileName,
                           std::shared_ptr<const TakenData> takenFrom) {
  seeds_.next = std::max(seeds_.next, highestSeed(content) + 1);
  SheetEdit edit = beginEdit(name);
  edit.replaceAll({.content = std::move(content),
                   .miStdDecDigits = standardDecimals,
                   .mtFileName = std::move(fileName),
                   .takenFrom = std::move(takenFrom)});
  commit(edit);
  journal_.keep();
  touched_ = false;
  neverSaved_ = false;
}

void DataSheet::markSaved(std::string fileName) {
  state_.mtFileName = std::move(fileName);
  journal_.keep();
  touched_ = false;
  neverSaved_ = false;
  if (state_.content == visitStart_.content)
    visitStartUnsaved_ = false;
  else if (state_.mtFileName == visitStart_.mtFileName)
    visitStartUnsaved_ = true;  // its file holds something else now
  follow({.file = true});
}

template <class Step>
const SheetJournal::Action* DataSheet::step(Step undoOrRedo) {
  SheetChange change;
  const SheetJournal::Action* action = (journal_.*undoOrRedo)(state_, change);
  if (action) follow(std::move(change));
  return action;
}

const SheetJournal::Action* DataSheet::undo() { return step(&SheetJournal::undo); }

const SheetJournal::Action* DataSheet::redo() { return step(&SheetJournal::redo); }

void DataSheet::startVisit() {
  journal_.forget();
  visitStart_ = state_;
  visitStartUnsaved_ = unsaved();
}

void DataSheet::restoreVisitStart() {
  state_ = visitStart_;
  journal_.forget();
  journal_.keep();
  touched_ = false;
  neverSaved_ = visitStartUnsaved_;
  follow({.all = true});
}

}  // namespace tolmer
