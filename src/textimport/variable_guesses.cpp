// What the columns of a foreign table are, and as what they land: numbers, days, labels of the
// cases.
#include <algorithm>
#include <array>
#include <set>
#include <unordered_set>
#include <utility>

#include "base/text_encoding.h"
#include "formula/sheet_names.h"
#include "textimport/import_guesses.h"
#include "textimport/typed_number.h"

namespace tolmer {
namespace {

constexpr int labelsChosen = 0;
constexpr int datesAsLabels = 2;

}  // namespace

const char* kindWord(const ImportVariable& variable) {
  constexpr std::array words = {"empty", "numbers", "dates", "words"};
  return variable.isCoded ? "codes" : words[static_cast<std::size_t>(variable.kind)];
}

int ImportFindings::columnNumber(int column) const {
  return book_ ? book_->table.columns[static_cast<std::size_t>(column)].number : column + 1;
}

bool ImportFindings::isTaken(int column) const {
  return !choice_.columns || choice_.columns->contains(columnNumber(column));
}

VariableKind ImportFindings::kindOf(int column, int fromRow) const {
  int numbers = 0;
  int dates = 0;
  int words = 0;
  for (int row = fromRow; row < static_cast<int>(table_.rows.size()); ++row) {
    const std::string_view text = field(row, column);
    const FieldLook seen = look(row, column);
    if (text.empty() || seen.missing) continue;
    ++(seen.kind == CutKind::date ? dates : seen.shape.isNumber() ? numbers : words);
  }
  if (numbers + dates + words == 0) return VariableKind::empty;
  if (words > numbers + dates) return VariableKind::words;
  return dates > numbers ? VariableKind::dates : VariableKind::numbers;
}

void ImportFindings::describeVariables() {
  const auto names = columnNames();
  for (int column = 0; column < columns(); ++column)
    variables_.push_back(target_.hints.wanted
                             ? ImportVariable{.column = columnNumber(column),
                                              .name = names[static_cast<std::size_t>(column)]}
                             : described(column, names[static_cast<std::size_t>(column)]));
}

ImportVariable ImportFindings::described(int column, std::string name) const {
  ImportVariable variable{.column = columnNumber(column), .name = std::move(name)};
  if (book_) variable.label = book_->table.columns[static_cast<std::size_t>(column)].label;
  variable.kind = kindOf(column, firstDataRow());
  std::unordered_set<std::string_view> seen;
  std::unordered_set<std::string_view> missing;
  for (int row = firstDataRow(); row < static_cast<int>(table_.rows.size()); ++row) {
    const std::string_view text = field(row, column);
    if (text.empty()) continue;
    if (look(row, column).missing) {
      if (look(row, column).kind == CutKind::text) missing.insert(text);
      continue;
    }
    ++variable.values;
    if (seen.size() < mostDifferent) seen.insert(text);
  }
  variable.different = static_cast<int>(seen.size());
  if (book_ && book_->table.rowsInAll > static_cast<int>(book_->table.rows()))
    countInAll(column, static_cast<int>(missing.size()), variable);
  return variable;
}

// Of a file that was read in part. What stands above the cases was counted with them.
void ImportFindings::countInAll(int column, int missing, ImportVariable& variable) const {
  const CutTable& cut = book_->table;
  const CutColumn& whole = cut.columns[static_cast<std::size_t>(column)];
  int above = 0;
  for (int row = 0; row < rowsAbove(); ++row)
    if (cut.field(static_cast<std::size_t>(row), static_cast<std::size_t>(column)).kind !=
        CutKind::empty)
      ++above;
  int values = -above;
  for (auto kind = CutKind::number; kind <= CutKind::text;
       kind = static_cast<CutKind>(static_cast<int>(kind) + 1))
    values += whole.count(kind);
  variable.values = std::max(variable.values, values);
  const bool isFull = whole.different == mostDifferent;
  variable.different =
      std::max(variable.different, whole.different - (isFull ? 0 : above + missing));
  if (variable.kind != VariableKind::empty) return;
  const bool isWords = 2 * whole.count(CutKind::text) > values;
  if (values > 0) variable.kind = isWords ? VariableKind::words : VariableKind::numbers;
}

// What the user chose for single columns.
void ImportFindings::takeChosenUses() {
  const bool file = target_.origin == TextOrigin::file;
  for (int column = 0; column < columns(); ++column) {
    ImportVariable& one = variable(column);
    if (canBeDummies(one)) {
      one.categories = categoriesOf(column);
      if (one.categories.size() < 2) one.categories.clear();  // the chosen cases have one
    }
    if (one.kind != VariableKind::words) one.uses.push_back(ColumnUse::numbers);
    if (!one.categories.empty()) one.uses.push_back(ColumnUse::dummies);
    if (!one.categories.empty()) one.reference = referenceOf(column);
    one.isCoded = one.kind == VariableKind::numbers && areAllLabelled(column);
    if (file && one.kind != VariableKind::empty) one.uses.push_back(ColumnUse::labels);
    if (one.kind == VariableKind::words && one.categories.empty())
      one.uses.push_back(ColumnUse::leftOut);
    const auto chosen = choice_.uses.find(columnNumber(column));
    if (landsAs(Use::label, column)) continue;
    if (!isTaken(column)) use(column) = Use::none;
    if (!isTaken(column) || chosen == choice_.uses.end()) continue;
    if (chosen->second == ColumnUse::leftOut) use(column) = Use::none;
    if (chosen->second == ColumnUse::dummies && !one.categories.empty()) use(column) = Use::dummies;
    if (chosen->second == ColumnUse::labels && file && firstColumn_ == 1) {
      use(column) = Use::label;
      firstColumn_ = 0;
    }
  }
}

// Words or days in a file's first column may be labels; what a saved sheet calls "Label", and what
// has no name, is.
void ImportFindings::findLabels() {
  const bool isSettled =
      firstColumn_ == 0 || !landsAs(Use::number, 0) || choice_.uses.contains(columnNumber(0));
  if (target_.origin != TextOrigin::file || isSettled) return;
  const ImportVariable& first = variable(0);
  bool labels = heading_ && (field(0, 0).empty() || equalsLabel(field(0, 0)));
  if (labels) notes_.push_back("The first column holds the labels of the cases.");
  if (!labels && (first.kind == VariableKind::words || first.kind == VariableKind::dates)) {
    const bool days = first.kind == VariableKind::dates;
    const bool canBeNumbers = days || !first.categories.empty();
    std::vector<std::string> choices{"Labels of the cases"};
    if (canBeNumbers) choices.push_back(days ? "Days since 1899-12-30" : dummiesText(0));
    choices.emplace_back("Leave it out");
    const bool repeats = !days && canBeNumbers && 2 * first.different <= first.values;
    const std::string name = heading_ ? ", \"" + first.name + "\"," : "";
    const int answer =
        *ask(ImportDoubt::labels,
             "The first column" + name + " holds " + (days ? "days" : "words") + " (" +
                 quotation(field(firstDataRow(), 0)) + " and so on). What is to become of it?",
             choices, repeats ? 1 : labelsChosen);
    labels = answer == labelsChosen;
    if (!labels && answer + 1 == static_cast<int>(choices.size())) use(0) = Use::none;
    if (!labels && landsAs(Use::number, 0) && !days) use(0) = Use::dummies;
  }
  if (!labels) return;
  use(0) = Use::label;
  firstColumn_ = 0;
}

int ImportFindings::columnsThatLand() const {
  int count = 0;
  for (int column = 0; column < columns(); ++column)
    count += landsAs(Use::dummies, column)  ? dummiesOf(column)
             : landsAs(Use::number, column) ? 1
                                            : 0;
  return count;
}

void ImportFindings::findDates() {
  Sighting dates;
  std::set<int> columns;
  eachValue([&](int row, int column, const FieldLook& seenField) {
    if (seenField.kind != CutKind::date) return;
    dates.add(row, column);
    columns.insert(column);
  });
  const bool settled = std::all_of(columns.begin(), columns.end(), [this](int column) {
    return choice_.uses.contains(columnNumber(column)) ||
           (column == 0 && answerTo(ImportDoubt::labels));
  });
  if (columns.empty() || settled) return;
  const double first = *exact(dates.row, dates.column);
  std::vector<std::string> choices{"Days since 1899-12-30: " + exactText(first), leaveCellsEmpty};
  const bool file = target_.origin == TextOrigin::file && !target_.hints.wanted;
  if (file && firstColumn_ == 1 && columns.size() == 1) choices.emplace_back("Labels of the cases");
  if (ask(ImportDoubt::dates, "What is to become of dates? First " + seenAt(dates) + ".",
          std::move(choices), std::nullopt) != datesAsLabels)
    return;
  use(*columns.begin()) = Use::label;
  firstColumn_ = 0;
}

// Labels first, all else in its order.
void ImportFindings::land() {
  auto names = std::vector<std::string>(table_.columns());
  for (int column = 0; column < columns() && heading_; ++column)
    names[static_cast<std::size_t>(column)] = field(0, column);
  if (target_.hints.wanted) names = columnNames();
  for (int column = 0; column < columns(); ++column)
    if (landsAs(Use::label, column))
      landings_.push_back({column, names[static_cast<std::size_t>(column)], {}, {}});
  for (int column = 0; column < columns(); ++column) {
    if (landsAs(Use::dummies, column)) landDummies(column);
    const bool asItIs = landsAs(Use::number, column) || landsAs(Use::ifPlain, column) ||
                        landsAs(Use::undecided, column);
    if (asItIs) landings_.push_back({column, names[static_cast<std::size_t>(column)], {}, {}});
  }
  tellUses();
}

void ImportFindings::tellUses() {
  constexpr int mostTold = 3;
  int told = 0;
  for (int column = 0; column < columns(); ++column) {
    ImportVariable& one = variable(column);
    one.use = landsAs(Use::label, column)     ? ColumnUse::labels
              : landsAs(Use::dummies, column) ? ColumnUse::dummies
              : landsAs(Use::none, column)    ? ColumnUse::leftOut
                                              : ColumnUse::numbers;
    if (one.use == ColumnUse::dummies && told++ < mostTold) noteDummies(column);
  }
  if (told > mostTold)
    notes_.push_back(std::to_string(told - mostTold) +
                     " more columns became dummy variables in the same way.");
}

std::vector<std::string> ImportFindings::headings() const {
  const bool leftOut = answerTo(ImportDoubt::headingPlace) == 1;
  const bool hasDummies = std::any_of(landings_.begin(), landings_.end(),
                                      [](const Landing& at) { return at.one.has_value(); });
  std::vector<std::string> names;
  if ((heading_ && !leftOut) || hasDummies)
    for (const Landing& at : landings_)
      names.push_back(leftOut && !at.one ? std::string() : at.name);
  return names;
}

int ImportFindings::taken() const {
  return static_cast<int>(landings_.size()) - (firstColumn_ == 0 ? 1 : 0);
}

std::vector<ImportedVariable> ImportFindings::described() const {
  std::vector<ImportedVariable> all;
  for (const Landing& at : landings_) {
    ImportedVariable& one = all.emplace_back();
    one.label = variable(at.column).label;
    one.isDummy = at.one.has_value();
    if (one.isDummy)
      one.valueLabels = {{"0", at.reference}, {"1", at.one->name}};
    else if (book_ && landsAs(Use::number, at.column))
      one.valueLabels = book_->table.columns[static_cast<std::size_t>(at.column)].valueLabels;
  }
  // Of several dummies 0 means any of the others.
  for (std::size_t i = 0; i < landings_.size(); ++i)
    if (landings_[i].one && dummiesOf(landings_[i].column) > 1)
      all[i].valueLabels[0].label = "another; the reference is " + landings_[i].reference;
  return all;
}

}  // namespace tolmer
