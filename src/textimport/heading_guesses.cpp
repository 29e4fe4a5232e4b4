// Where names, units, labels and cases are in a foreign table.
#include <algorithm>
#include <utility>

#include "textimport/import_guesses.h"

namespace tolmer {
namespace {

std::string withoutLines(std::string_view text, int lines) {
  for (; lines > 0 && !text.empty(); --lines) {
    const auto end = std::min(text.find_first_of("\r\n"), text.size());
    text.remove_prefix(end);
    text.remove_prefix(text.starts_with("\r\n") ? 2 : std::min<std::size_t>(text.size(), 1));
  }
  return std::string(text);
}

bool isYear(std::string_view field) {
  return field.size() == 4 && (field[0] == '1' || field[0] == '2') &&
         std::all_of(field.begin(), field.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

std::optional<Error> ImportFindings::findTable(const ImportSource& source) {
  book_ = source.book;
  casesMet_ = source.casesMet;
  if (!book_) return findTextTable(*source.text);
  table_ = textTable(book_->table, !target_.hints.headingRow);
  if (auto error = cutAboveHeading()) return error;
  askSheet();
  noteBook();
  if (table_.titleLines > 0)
    notes_.push_back("Rows above the table were left out: " + std::to_string(table_.titleLines) +
                     ", the first is \"" + table_.firstTitle + "\".");
  const bool isOpen = !questions_.empty() && !questions_.front().chosen;
  if (!isOpen && (table_.rows.empty() || columns() == 0))
    return Error{"", "There are no data in the file."};
  return std::nullopt;
}

std::optional<Error> ImportFindings::findTextTable(const std::string& whole) {
  const int linesBefore = std::max(target_.hints.headingRow.value_or(0) - 1, 0);
  const std::string below = linesBefore > 0 ? withoutLines(whole, linesBefore) : std::string();
  const std::string& text = linesBefore > 0 ? below : whole;
  const auto separator = chooseSeparator(text);
  // As long as nobody has said what divides the fields, quotes are letters like others.
  auto table = textTable(text, separator.value_or(noSeparator),
                         separator ? target_.origin : TextOrigin::clipboard);
  if (!table) return table.error();
  if (table->rows.empty() || table->columns() == 0)
    return Error{"", "There are no data in the text."};
  table_ = std::move(*table);
  for (TextTable::Row& row : table_.rows) row.line += linesBefore;
  if (table_.titleLines > 0)
    notes_.push_back("Lines above the table were left out: " + std::to_string(table_.titleLines) +
                     ", the first is \"" + table_.firstTitle + "\".");
  if (table_.blankLines > 0)
    notes_.push_back("Blank lines were left out: " + std::to_string(table_.blankLines) + ".");
  return std::nullopt;
}

// Programs that number or name their cases write these in a first column without a name, some of
// them without even an empty field over it.
bool ImportFindings::firstRowIsShortOfAName() const {
  if (table_.shortRows != 1 || table_.firstShortRow != 0 || table_.rows.size() < 2 ||
      table_.shortLength + 1 != table_.columns())
    return false;
  for (int column = 0; column + 1 < columns(); ++column)
    if (!field(0, column).empty() && !look(0, column).shape.isNumber()) return true;
  return firstColumnNamesCases();
}

bool ImportFindings::firstColumnNamesCases() const {
  if (kindOf(0, 1) == VariableKind::words) return true;
  for (int row = 1; row < static_cast<int>(table_.rows.size()); ++row)
    if (field(row, 0) != std::to_string(row)) return false;
  return true;
}

void ImportFindings::findFirstRow() {
  if (!firstRowIsShortOfAName()) return;
  namesAreShort_ = true;
  const auto chosen = ask(ImportDoubt::firstRow,
                          "The first row has one field less than the others (\"" + firstName() +
                              "\" and so on). Over which column does it begin?",
                          {"Over the second: the first has no name",
                           "Over the first: the last has no name", "Do not bring the text in"},
                          firstColumnNamesCases() ? std::optional(0) : std::nullopt);
  if (chosen.value_or(0) != 0) return;
  TextTable::Row& names = table_.rows.front();
  auto& fields = table_.fields;
  const std::size_t begin = fields.size();
  fields.emplace_back(std::size_t{0}, std::size_t{0});
  for (std::size_t i = 0; i + 1 < table_.columns(); ++i) fields.push_back(fields[names.begin + i]);
  names.begin = begin;
  names.length = table_.columns();
  looks_.resize(fields.size());
  lookAtRow(0);
}

// Nothing over a first column that is filled, which hints at names over the others.
bool ImportFindings::cornerIsBlank() const {
  if (target_.origin == TextOrigin::clipboard || !field(0, 0).empty()) return false;
  for (int row = 1; row < static_cast<int>(table_.rows.size()); ++row)
    if (field(row, 0).empty()) return false;
  return true;
}

std::string ImportFindings::firstName() const {
  for (int column = 0; column < columns(); ++column)
    if (!field(0, column).empty()) return std::string(field(0, column));
  return {};
}

bool ImportFindings::firstRowIsYears() const {
  bool years = false;
  for (int column = 0; column < columns(); ++column) {
    if (kindOf(column, 1) != VariableKind::numbers) continue;
    if (!isYear(field(0, column))) return false;
    years = years || !isYear(field(1, column));
  }
  return years;
}

// nullopt: the first row may be either.
std::optional<bool> ImportFindings::headingByLook() const {
  if (table_.rows.size() < 2) return false;
  int words = 0;
  int others = 0;
  bool anyNumbers = false;
  for (int column = 0; column < columns(); ++column) {
    const VariableKind kind = kindOf(column, 1);
    const bool overNumbers = kind == VariableKind::numbers || kind == VariableKind::dates;
    anyNumbers = anyNumbers || overNumbers;
    const std::string_view text = field(0, column);
    const FieldLook seen = look(0, column);
    const bool isWord =
        !text.empty() && !seen.missing && !seen.shape.isNumber() && seen.kind != CutKind::date;
    if (column == 0 && cornerIsBlank()) continue;
    if (overNumbers || kind == VariableKind::empty) ++(isWord ? words : others);
  }
  if (!anyNumbers && words == 0 && others > 0) return false;
  if (!anyNumbers || (words > 0 && others > 0) || firstRowIsYears()) return std::nullopt;
  if (words == 0 && cornerIsBlank()) return std::nullopt;
  return words > 0;
}

void ImportFindings::findHeading() {
  const bool pasted = target_.origin == TextOrigin::clipboard;
  const bool cursorOnNames = pasted && target_.row == 0;
  const bool onlyLabels = pasted && columns() == 1 && target_.column == 0;
  const bool named = namesAreShort_ || (book_ && book_->table.namesApart);
  auto heading = named ? true : headingByLook();
  if (!heading && firstRowHasWantedNames()) heading = true;
  if (target_.hints.headingRow) heading = *target_.hints.headingRow > 0;
  if (!heading && (cursorOnNames || onlyLabels)) heading = cursorOnNames;
  if (cursorOnNames && table_.rows.size() == 1) heading = true;
  if (!heading) {
    const auto chosen =
        ask(ImportDoubt::heading,
            "Does the first row hold the names of the columns (\"" + firstName() + "\" and so on)?",
            {"Yes, names", "No, data"}, std::nullopt);
    heading = chosen.value_or(0) == 0;
  }
  heading_ = *heading;
  if (cursorOnNames && !heading_)
    notes_.push_back("The first row holds data: the block begins below the headings.");
}

// Units of measurement below the names: as a row without numbers they would become a case.
void ImportFindings::findUnits() {
  const bool namesApart = book_ && book_->table.namesApart;
  if (target_.origin != TextOrigin::file || !heading_ || dataRows() < 2 || namesApart) return;
  std::string first;
  for (int column = 0; column < columns(); ++column) {
    if (kindOf(column, 2) != VariableKind::numbers) continue;
    if (look(1, column).shape.isNumber() || look(1, column).missing) return;
    if (first.empty()) first = field(1, column);
  }
  if (first.empty()) return;
  unitRows_ = 1;
  notes_.push_back(nameOfRow(1) + " has no numbers below the names (\"" + first +
                   "\") and was left out.");
}

// Where the table begins in the sheet.
void ImportFindings::findLanding() {
  if (target_.hints.wanted) return findWanted();
  firstRow_ = std::max(target_.row, 1);
  firstColumn_ = target_.column;
  if (target_.origin == TextOrigin::file) {
    firstRow_ = firstColumn_ = 1;
    return;
  }
  if (firstColumn_ == 0) uses_.front() = Use::label;
  if (firstColumn_ == 0 && columns() > 1 && kindOf(0, firstDataRow()) == VariableKind::numbers &&
      !(heading_ && (field(0, 0).empty() || equalsLabel(field(0, 0)))))
    notes_.push_back("The first column becomes the labels of the cases, though it holds numbers.");
  if (heading_ && target_.row > 0 && (questions_.empty() || questions_.back().chosen)) {
    ask(ImportDoubt::headingPlace,
        "The first row holds names, and the block lands below the row of headings. What is to "
        "become "
        "of the names?",
        {"Put them into the row of headings", "Leave them out"}, 0);
  }
}

// Before some of the rows are chosen.
void ImportFindings::noteShortRows() {
  if (table_.firstShortRow < 0) return;
  shortRow_ = place(table_.firstShortRow, 0);
  shortLine_ = rowOf(table_.firstShortRow).line;
}

void ImportFindings::findShortRows() {
  if (shortLine_ == 0 || namesAreShort_) return;
  ask(ImportDoubt::shortRows,
      "Rows have different lengths: line " + std::to_string(shortLine_) + " has " +
          std::to_string(table_.shortLength) + (table_.shortLength == 1 ? " field" : " fields") +
          ", others have " + std::to_string(columns()) + ". What is missing at their ends?",
      {"Empty cells", "Do not bring the text in"}, std::nullopt);
}

}  // namespace tolmer
