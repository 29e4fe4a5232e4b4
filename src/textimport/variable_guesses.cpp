// What the columns of a foreign table are, and what becomes of words, days and codes in them.
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
constexpr int dummiesChosen = 0;
constexpr int datesAsLabels = 2;
constexpr std::size_t mostCategoriesOfCodes = 12;  // of numbers that nothing says are codes

bool equalsLabel(const std::string& heading) { return heading == "Label" || heading == "label"; }

std::string counted(int count, const std::string& noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

// The one of two words that means the other is not so.
bool isNo(const Category& category) {
  const std::string word = foldedName(category.name);
  return word == "no" || word == "n" || word == "false" || word == "f";
}
bool isYes(const Category& category) {
  const std::string word = foldedName(category.name);
  return word == "yes" || word == "y" || word == "true" || word == "t";
}
bool areYesAndNo(const std::vector<Category>& two) {
  return two.size() == 2 && ((isNo(two[0]) && isYes(two[1])) || (isYes(two[0]) && isNo(two[1])));
}

// What their names begin with. Tables show the first 10 characters of a name: where these would be
// alike for "Education: primary" and "Education: secondary", it is "Educ: primary".
std::string stemOfDummies(const ImportVariable& variable) {
  constexpr std::size_t shownOfNames = 10;
  constexpr std::size_t shortened = 4;
  for (const std::string& stem :
       {variable.name, variable.name.substr(0, utf8Prefix(variable.name, shortened))}) {
    std::set<std::string> shown;
    for (const Category& category : variable.categories) {
      const std::string name = stem + ": " + category.name;
      if (category.value != variable.reference)
        shown.insert(name.substr(0, utf8Prefix(name, shownOfNames)));
    }
    if (shown.size() + 1 == variable.categories.size()) return stem;
  }
  return variable.name;
}

// "Region", "Region and Sex", "Region, Sex and 3 more"
std::string listed(const std::vector<std::string>& names) {
  if (names.size() == 1) return names[0];
  if (names.size() == 2) return names[0] + " and " + names[1];
  return names[0] + ", " + names[1] + " and " + std::to_string(names.size() - 2) + " more";
}

bool comesBefore(const Category& one, const Category& other) {
  const NumberReading left = readNumber(one.value);
  const NumberReading right = readNumber(other.value);
  if (left.kind == NumberReading::Kind::number && right.kind == NumberReading::Kind::number)
    return left.number < right.number;
  return std::pair(foldedName(one.value), one.value) <
         std::pair(foldedName(other.value), other.value);
}

}  // namespace

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
    const std::string& text = field(row, column);
    const FieldLook& seen = look(row, column);
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
    const std::string& text = field(row, column);
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

std::string ImportFindings::labelOf(int column, const std::string& value) const {
  if (!book_) return value;
  for (const auto& [labelled, label] :
       book_->table.columns[static_cast<std::size_t>(column)].valueLabels)
    if (labelled == value && !label.empty()) return label;
  return value;
}

// What different values the cases have.
std::vector<Category> ImportFindings::categoriesOf(int column) const {
  std::set<std::string> seen;
  for (int row = firstDataRow(); row < static_cast<int>(table_.rows.size()); ++row)
    if (!field(row, column).empty() && !look(row, column).missing &&
        seen.size() < static_cast<std::size_t>(mostDifferent))
      seen.insert(field(row, column));
  std::vector<Category> categories;
  for (const std::string& value : seen) categories.push_back({value, labelOf(column, value)});
  std::sort(categories.begin(), categories.end(), comesBefore);
  return categories;
}

// A word of its own for each case tells nothing of other cases.
bool ImportFindings::canBeDummies(const ImportVariable& variable) const {
  const int different = variable.different;
  if (different < 2 || different > std::min(roomForVariables() + 1, mostDifferent - 1))
    return false;
  if (variable.kind == VariableKind::words) return different == 2 || different < variable.values;
  const auto column = static_cast<std::size_t>(&variable - variables_.data());
  const bool hasLabels = book_ && !book_->table.columns[column].valueLabels.empty();
  return variable.kind == VariableKind::numbers &&
         (hasLabels || different <= static_cast<int>(mostCategoriesOfCodes));
}

int ImportFindings::dummiesOf(int column) const {
  return static_cast<int>(variable(column).categories.size()) - 1;
}

std::string ImportFindings::referenceOf(int column) const {
  const auto& categories = variable(column).categories;
  const auto has = [&](const std::string& value) {
    return std::any_of(categories.begin(), categories.end(),
                       [&](const Category& one) { return one.value == value; });
  };
  const auto chosen = choice_.references.find(columnNumber(column));
  if (chosen != choice_.references.end() && has(chosen->second)) return chosen->second;
  if (areYesAndNo(categories)) return categories[isNo(categories[0]) ? 0 : 1].value;
  return categories.front().value;
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

// What each category but one would become.
std::string ImportFindings::dummiesText(int column) const {
  const ImportVariable& one = variable(column);
  std::string other;
  std::string reference;
  for (const Category& category : one.categories)
    (category.value == one.reference ? reference : other) = category.name;
  if (dummiesOf(column) == 1) return "1 for " + other + ", 0 for " + reference;
  return counted(dummiesOf(column), "dummy variable") + "; reference " + reference;
}

void ImportFindings::findWordColumns() {
  std::vector<int> offered;
  std::vector<int> unfit;
  int room = roomForVariables();
  for (int column = 0; column < columns(); ++column) {
    const bool isOpen =
        landsAs(Use::number, column) && variable(column).kind == VariableKind::words;
    if (!isOpen && landsAs(Use::dummies, column)) room -= dummiesOf(column);
    if (!isOpen && landsAs(Use::number, column)) --room;
  }
  for (int column = 0; column < columns(); ++column) {
    if (!landsAs(Use::number, column) || variable(column).kind != VariableKind::words) continue;
    const bool fits = !variable(column).categories.empty() && dummiesOf(column) <= room;
    (fits ? offered : unfit).push_back(column);
    if (fits) room -= dummiesOf(column);
  }
  // Of a pasted block the columns beside it would move.
  if (target_.origin == TextOrigin::file) tellUnfit(unfit);
  if (!offered.empty()) askWordColumns(offered);
}

void ImportFindings::tellUnfit(const std::vector<int>& columns) {
  std::vector<std::string> names;
  for (const int column : columns) {
    use(column) = Use::none;
    names.push_back(variable(column).name);
  }
  if (names.empty()) return;
  const ImportVariable& first = variable(columns[0]);
  // Of the chosen cases, which may all be alike.
  const auto different = static_cast<int>(categoriesOf(columns[0]).size());
  const std::string many = different >= mostDifferent
                               ? "more than " + std::to_string(mostDifferent - 1)
                               : std::to_string(different);
  const std::string why =
      names.size() > 1 ? "words that make no dummy variables: too many different ones, or one alone"
      : different == 1 ? "one word alone"
                       : many + " different words in " + std::to_string(first.values) +
                             " cases, too many for dummy variables";
  notes_.push_back(listed(names) + (names.size() == 1 ? " holds " : " hold ") + why +
                   (names.size() == 1 ? ". It is left out." : ". They are left out."));
}

void ImportFindings::askWordColumns(const std::vector<int>& columns) {
  std::vector<std::string> names;
  int dummies = 0;
  for (const int column : columns) {
    names.push_back(variable(column).name);
    dummies += dummiesOf(column);
  }
  std::string words;
  if (columns.size() == 1) {
    const auto& categories = variable(columns[0]).categories;
    for (std::size_t at = 0; at < std::min<std::size_t>(categories.size(), 3); ++at)
      words += (at == 0 ? " (" : ", ") + categories[at].name;
    words += categories.size() > 3 ? ", ...)" : ")";
  }
  const bool one = columns.size() == 1;
  const auto chosen = ask(
      ImportDoubt::wordColumns,
      listed(names) + (one ? " holds" : " hold") + " words" + words + ". What is to become of " +
          (one ? "it?" : "them?"),
      {one ? dummiesText(columns[0]) : "Dummy variables, " + std::to_string(dummies) + " in all",
       one ? "Leave it out" : "Leave them out"},
      target_.origin == TextOrigin::file ? std::optional(dummiesChosen) : std::nullopt);
  for (const int column : columns)
    use(column) = !chosen ? Use::undecided : *chosen == dummiesChosen ? Use::dummies : Use::none;
}

bool ImportFindings::areAllLabelled(int column) const {
  if (!book_) return false;
  const auto& labels = book_->table.columns[static_cast<std::size_t>(column)].valueLabels;
  const auto& categories = variable(column).categories;
  return !categories.empty() &&
         std::all_of(categories.begin(), categories.end(), [&](const Category& one) {
           return std::any_of(labels.begin(), labels.end(),
                              [&](const ValueLabel& label) { return label.value == one.value; });
         });
}

void ImportFindings::findCodedColumns() {
  std::vector<int> coded;
  std::vector<std::string> names;
  int dummies = 0;
  for (int column = 0; column < columns(); ++column) {
    if (!landsAs(Use::number, column) || !variable(column).isCoded) continue;
    if (choice_.uses.contains(columnNumber(column))) continue;
    coded.push_back(column);
    names.push_back(variable(column).name);
    dummies += dummiesOf(column);
  }
  if (coded.empty()) return;
  const auto& first = variable(coded[0]).categories;
  const std::string example = first[0].value + " = " + first[0].name + ", " + first[1].value +
                              " = " + first[1].name + (first.size() > 2 ? ", ..." : "");
  std::vector<std::string> choices{"Numbers, as they are"};
  if (columnsThatLand() - static_cast<int>(coded.size()) + dummies <= roomForVariables())
    choices.push_back(coded.size() == 1
                          ? dummiesText(coded[0])
                          : "Dummy variables, " + std::to_string(dummies) + " in all");
  const int answer =
      *ask(ImportDoubt::codedColumns,
           listed(names) + (names.size() == 1 ? " holds" : " hold") + " codes for words (" +
               example + "). What is to become of " + (names.size() == 1 ? "it?" : "them?"),
           choices, 0);
  if (answer == 0) return;
  for (const int column : coded) use(column) = Use::dummies;
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
  const double first = *look(dates.row, dates.column).exact;
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
  const auto names = target_.hints.wanted ? columnNames()
                     : heading_           ? table_.rows.front()
                                          : std::vector<std::string>(table_.columns());
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

void ImportFindings::landDummies(int column) {
  const ImportVariable& one = variable(column);
  std::string reference;
  for (const Category& category : one.categories)
    if (category.value == one.reference) reference = category.name;
  const std::string stem = stemOfDummies(one);
  for (const Category& category : one.categories) {
    if (category.value == one.reference) continue;
    const bool isPlain = areYesAndNo(one.categories) && isYes(category);
    landings_.push_back(
        {column, isPlain ? one.name : stem + ": " + category.name, category, reference});
  }
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

void ImportFindings::noteDummies(int column) {
  const ImportVariable& one = variable(column);
  const auto last = std::find_if(landings_.rbegin(), landings_.rend(),
                                 [column](const Landing& at) { return at.column == column; });
  const auto first = std::find_if(landings_.begin(), landings_.end(),
                                  [column](const Landing& at) { return at.column == column; });
  auto& notes = target_.hints.wanted ? choiceTold_ : notes_;
  if (dummiesOf(column) == 1)
    notes.push_back(one.name + " comes as \"" + first->name + "\": 1 for " + first->one->name +
                    ", 0 for " + first->reference + ".");
  else
    notes.push_back(one.name + " comes as " + counted(dummiesOf(column), "dummy variable") +
                    ", \"" + first->name + "\" to \"" + last->name + "\", all 0 for " +
                    first->reference + ".");
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
    if (at.one)
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

Result<std::optional<ImportedCell>> ImportFindings::dummyCell(int row,
                                                              const Landing& landing) const {
  const std::string& text = field(row, landing.column);
  const FieldLook& seen = look(row, landing.column);
  if (text.empty() || (seen.missing && (book_ && seen.kind != CutKind::text)))
    return std::optional(ImportedCell{});
  if (seen.missing) return emptied(ImportDoubt::missing, 0, row, landing.column, "a missing value");
  return std::optional(ImportedCell{.number = text == landing.one->value ? 1.0 : 0.0});
}

}  // namespace tolmer
