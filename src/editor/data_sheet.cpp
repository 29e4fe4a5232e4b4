#include "editor/data_sheet.h"

#include <algorithm>
#include <utility>

#include "base/tabbed_text.h"
#include "editor/sheet_entry.h"
#include "editor/sheet_headings.h"
#include "editor/sheet_number.h"
#include "formula/rewrite.h"

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

Int16 withinDecimals(Int16 digits) { return std::clamp(digits, Int16{0}, maxDecimals); }

// A name that comes may be another column's too: formulas still mean the columns they meant.
void nameBlanks(SheetContent& content) {
  for (int c = 0; c <= content.variables(); ++c) {
    if (!withoutOuterBlanks(content.cells(0, c).text).empty()) continue;
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
  commit(edit);
  return {.taken = std::move(entry->taken)};
}

void DataSheet::clear(const CellRange& block) {
  SheetEdit edit = beginEdit("Delete");
  edit.clear(clipped(block));
  commit(edit, WithoutSteps::marks);
}

CopiedBlock DataSheet::copy(const CellRange& block) const {
  const CellRange from = clipped(block);
  CopiedBlock copied;
  copied.table.copiedFrom = from.first;
  copied.table.cells.resize(from.last.row - from.first.row, from.last.column - from.first.column);
  copied.texts.resize(from.last.row - from.first.row, from.last.column - from.first.column);
  for (int r = from.first.row; r <= from.last.row; ++r)
    for (int c = from.first.column; c <= from.last.column; ++c) {
      const DataCell& held = cell(r, c);
      copied.table.cells(r - from.first.row, c - from.first.column) = held;
      std::string exact = r == 0 ? held.text : exactTextOf(held, formulas_.valueOf({r, c}));
      copied.exactText += tabbedCell(exact) + (c < from.last.column ? '\t' : '\n');
      copied.texts(r - from.first.row, c - from.first.column) =
          shownOrExact(shownText(r, c), std::move(exact));
    }
  return copied;
}

CopiedBlock DataSheet::cut(const CellRange& block) {
  CopiedBlock copied = copy(block);
  copied.table.wasCut = true;
  SheetEdit edit = beginEdit("Cut");
  edit.clear(clipped(block));
  commit(edit, WithoutSteps::marks);
  return copied;
}

PasteOutcome DataSheet::paste(const CellRange& target, const PasteTable& table) {
  SheetEdit edit = beginEdit("Paste");
  PasteOutcome outcome = tolmer::paste(edit, clipped(target), table);
  commit(edit, outcome.pasted ? WithoutSteps::marks : WithoutSteps::isNothing);
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
  commit(edit, WithoutSteps::marks);
  return pushedOut;
}

void DataSheet::deleteRows(int first, int last) {
  SheetEdit edit = beginEdit("Delete Row");
  tolmer::deleteRows(edit, first, std::min(last, observations()));
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
  commit(edit, WithoutSteps::marks);
}

void DataSheet::setDecimals(int col, Int16 digits) {
  std::vector<Int16> all = content().decimals;
  all[static_cast<std::size_t>(col)] = digits;
  setAllDecimals(all);
}

void DataSheet::setAllDecimals(std::span<const Int16> digits) {
  SheetEdit edit = beginEdit("Format");
  for (int c = 1; c <= variables(); ++c)
    edit.setDecimals(c, withinDecimals(digits[static_cast<std::size_t>(c)]));
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

void DataSheet::startOver(int observations, int variables) {
  visitStart_ = {.content = newContent(observations, variables)};
  visitStartUnsaved_ = false;
  restoreVisitStart();
}

void DataSheet::clearAll() { replaceAll("New", newContent(observations(), variables()), {}); }

void DataSheet::replaceWith(const SheetContent& content, std::string fileName) {
  replaceAll("Open", fitted(content, observations(), variables()), std::move(fileName));
}

void DataSheet::replaceAll(std::string_view name, SheetContent content, std::string fileName) {
  seeds_.next = std::max(seeds_.next, highestSeed(content) + 1);
  SheetEdit edit = beginEdit(name);
  edit.replaceAll({.content = std::move(content),
                   .miStdDecDigits = standardDecimals,
                   .mtFileName = std::move(fileName)});
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

bool DataSheet::undo() {
  SheetChange change;
  if (!journal_.undo(state_, change)) return false;
  follow(std::move(change));
  return true;
}

bool DataSheet::redo() {
  SheetChange change;
  if (!journal_.redo(state_, change)) return false;
  follow(std::move(change));
  return true;
}

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
