// The columns of a table that a caller names, beside what a sheet would take of it.
#include <algorithm>
#include <cmath>
#include <set>

#include "base/text_encoding.h"
#include "textimport/import_guesses.h"
#include "textimport/typed_number.h"

namespace tolmer {

// A row of names that the caller knows has nothing above it.
std::optional<Error> ImportFindings::cutAboveHeading() {
  const int heading = target_.hints.headingRow.value_or(0);
  const bool namesApart = book_->table.namesApart;
  if (heading == 0 || namesApart) return std::nullopt;
  const auto found = std::find_if(table_.rows.begin(), table_.rows.end(),
                                  [heading](const auto& row) { return row.line == heading; });
  if (found == table_.rows.end())
    return Error{"", "There is nothing in row " + std::to_string(heading) + "."};
  table_.rows.erase(table_.rows.begin(), found);
  return std::nullopt;
}

std::vector<std::string> ImportFindings::columnNames() const {
  std::vector<std::string> names;
  for (int column = 0; column < columns(); ++column) {
    names.push_back(heading_ ? onOneLine(std::string(field(0, column))) : std::string());
    if (names.back().empty()) names.back() = "Col " + std::to_string(column + 1);
  }
  return names;
}

// Who names the columns by what stands there takes it for names.
bool ImportFindings::firstRowHasWantedNames() const {
  if (!target_.hints.wanted) return false;
  std::vector<std::string> wanted = target_.hints.wanted->numbers;
  wanted.push_back(target_.hints.wanted->labels);
  std::erase(wanted, "");
  std::set<std::string> first;
  for (int column = 0; column < columns(); ++column)
    first.insert(onOneLine(std::string(field(0, column))));
  return !wanted.empty() && std::all_of(wanted.begin(), wanted.end(),
                                        [&](const auto& name) { return first.contains(name); });
}

void ImportFindings::findWanted() {
  const auto names = columnNames();
  for (int column = 0; column < columns(); ++column) {
    const auto at = static_cast<std::size_t>(column);
    uses_[at] = wantedUse(names[at], column);
  }
}

ImportFindings::Use ImportFindings::wantedUse(const std::string& name, int column) const {
  const WantedColumns& wanted = *target_.hints.wanted;
  if (!wanted.labels.empty() && name == wanted.labels) return Use::label;
  if (std::find(wanted.dummies.begin(), wanted.dummies.end(), name) != wanted.dummies.end())
    return Use::dummies;
  const auto& numbers = wanted.numbers;
  if (std::find(numbers.begin(), numbers.end(), name) != numbers.end()) return Use::number;
  for (int row = firstDataRow(); row < static_cast<int>(table_.rows.size()); ++row)
    if (look(row, column).shape.isNumber() && !look(row, column).missing)
      return wanted.others ? Use::number : Use::ifPlain;
  return Use::none;
}

bool ImportFindings::isBareNumber(int row, int column) const {
  const FieldLook seen = look(row, column);
  const NumberShape shape = seen.shape;
  if (seen.missing || field(row, column).empty() || !shape.fits(decimalMark_.value_or('.')))
    return false;
  return !shape.groupedByBlanks && !shape.percent && !shape.currency && !shape.bracketed;
}

void ImportFindings::leaveOutUnplain() {
  for (int column = 0; column < columns(); ++column) {
    if (!landsAs(Use::ifPlain, column)) continue;
    bool isPlain = true;
    for (int row = firstDataRow(); isPlain && row < static_cast<int>(table_.rows.size()); ++row)
      isPlain = isBareNumber(row, column);
    if (!isPlain) uses_[static_cast<std::size_t>(column)] = Use::none;
  }
}

// Where other data have told the categories, they may be written by their names as well.
bool ImportFindings::isIn(const Category& category, int column, std::string_view text) const {
  const auto& wanted = target_.hints.wanted;
  const bool isKnown = wanted && wanted->categories.contains(variable(column).name);
  return text == category.value || (isKnown && text == category.name);
}

// A variable of two words may come as the numbers that it is in the other data.
std::optional<Error> ImportFindings::takeKnownCategories(int column,
                                                         const std::vector<Category>& known) {
  ImportVariable& one = variable(column);
  one.categories = known;
  const auto& numbers = target_.hints.wanted->numbers;
  for (int row = firstDataRow(); row < static_cast<int>(table_.rows.size()); ++row) {
    const std::string_view text = field(row, column);
    const bool isCategory = std::any_of(known.begin(), known.end(), [&](const Category& category) {
      return isIn(category, column, text);
    });
    if (text.empty() || look(row, column).missing || isCategory) continue;
    if (look(row, column).shape.isNumber() &&
        std::find(numbers.begin(), numbers.end(), one.name) != numbers.end()) {
      use(column) = Use::number;
      return std::nullopt;
    }
    std::string all;
    for (const Category& category : known) all += (all.empty() ? "" : ", ") + category.name;
    return Error{place(row, column),
                 quotation(text) + " is no category of " + one.name + "; these are " + all};
  }
  return std::nullopt;
}

// Of every column that is to become dummies its categories and the reference.
std::optional<Error> ImportFindings::findWantedDummies() {
  const WantedColumns& wanted = *target_.hints.wanted;
  for (int column = 0; column < columns(); ++column) {
    if (!landsAs(Use::dummies, column)) continue;
    ImportVariable& one = variable(column);
    if (const auto known = wanted.categories.find(one.name); known == wanted.categories.end())
      one.categories = categoriesOf(column);
    else if (auto error = takeKnownCategories(column, known->second))
      return error;
    if (!landsAs(Use::dummies, column)) continue;
    if (one.categories.size() < 2) {
      use(column) = Use::none;
      continue;
    }
    if (const auto named = wanted.references.find(one.name); named != wanted.references.end())
      for (const Category& category : one.categories)
        if (category.value == named->second || category.name == named->second)
          choice_.references[columnNumber(column)] = category.value;
    one.reference = referenceOf(column);
  }
  return std::nullopt;
}

Result<std::vector<TextNumber>> ImportFindings::numbersOf(const Landing& landing) const {
  std::vector<TextNumber> numbers;
  numbers.reserve(static_cast<std::size_t>(dataRows()));
  for (int row = firstDataRow(); row < static_cast<int>(table_.rows.size()); ++row) {
    const auto read = cell(row, landing);
    if (!read) return read.error();
    const double number =
        *read ? (*read)->number.value_or(gapInNumbers.written) : gapInNumbers.written;
    std::string text = landing.one ? exactText(number) : std::string(field(row, landing.column));
    if (decimalMark_ == ',') std::replace(text.begin(), text.end(), ',', '.');
    numbers.push_back(std::isnan(number) ? gapInNumbers : textNumberOf(number, text));
    if (std::isinf(numbers.back().held))
      return Error{place(row, landing.column), text + " is no number this program can hold"};
  }
  return numbers;
}

Result<NamedTable> ImportFindings::namedTable() const {
  NamedTable table{dataRows(), {}, {}, {}, caseNumbers_, choiceTold_};
  const auto names = columnNames();
  for (int column = 0; column < columns(); ++column) {
    if (landsAs(Use::label, column))
      for (int row = 0; row < dataRows(); ++row)
        table.labels.push_back(onOneLine(std::string(field(firstDataRow() + row, column))));
    if (auto error = nameColumn(column, names[static_cast<std::size_t>(column)], table))
      return *error;
  }
  return table;
}

// All that the column becomes.
std::optional<Error> ImportFindings::nameColumn(int column, const std::string& name,
                                                NamedTable& table) const {
  const bool isDummies = landsAs(Use::dummies, column);
  if (!isDummies) table.names.push_back(name);
  if (landsAs(Use::label, column) || landsAs(Use::none, column)) {
    table.numbers.emplace_back();
    return std::nullopt;
  }
  for (const Landing& landing : landings_) {
    if (landing.column != column) continue;
    auto numbers = numbersOf(landing);
    if (!numbers && !landsAs(Use::ifPlain, column)) return numbers.error();
    table.numbers.push_back(numbers ? std::move(*numbers) : std::vector<TextNumber>());
    if (!isDummies) continue;
    table.names.push_back(onOneLine(landing.name));
    DummyColumns& dummies = table.dummies[name];
    dummies.names.push_back(table.names.back());
    dummies.categories = variable(column).categories;
    dummies.reference = variable(column).reference;
  }
  return std::nullopt;
}

}  // namespace tolmer
