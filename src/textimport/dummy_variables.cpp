// Dummy variables of words and codes: which columns can become some, what they are called, which
// category has none.
#include <algorithm>
#include <set>
#include <utility>

#include "base/sentence_parts.h"
#include "base/text_encoding.h"
#include "formula/sheet_names.h"
#include "textimport/import_guesses.h"
#include "textimport/typed_number.h"

namespace tolmer {
namespace {

constexpr int dummiesChosen = 0;
constexpr std::size_t mostCategoriesOfCodes = 12;  // of numbers that nothing says are codes

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
std::string listedNames(const std::vector<std::string>& names) {
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

std::string ImportFindings::labelOf(int column, std::string_view value) const {
  if (!book_) return std::string(value);
  for (const auto& [labelled, label] :
       book_->table.columns[static_cast<std::size_t>(column)].valueLabels)
    if (labelled == value && !label.empty()) return label;
  return std::string(value);
}

// What different values the cases have.
std::vector<Category> ImportFindings::categoriesOf(int column) const {
  std::set<std::string> seen;
  for (int row = firstDataRow(); row < static_cast<int>(table_.rows.size()); ++row)
    if (!field(row, column).empty() && !look(row, column).missing &&
        seen.size() < static_cast<std::size_t>(mostDifferent))
      seen.emplace(field(row, column));
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
  notes_.push_back(listedNames(names) + (names.size() == 1 ? " holds " : " hold ") + why +
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
      listedNames(names) + (one ? " holds" : " hold") + " words" + words +
          ". What is to become of " + (one ? "it?" : "them?"),
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
           listedNames(names) + (names.size() == 1 ? " holds" : " hold") + " codes for words (" +
               example + "). What is to become of " + (names.size() == 1 ? "it?" : "them?"),
           choices, 0);
  if (answer == 0) return;
  for (const int column : coded) use(column) = Use::dummies;
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

Result<std::optional<ImportedCell>> ImportFindings::dummyCell(int row,
                                                              const Landing& landing) const {
  const std::string_view text = field(row, landing.column);
  const FieldLook seen = look(row, landing.column);
  if (text.empty() || (seen.missing && (book_ && seen.kind != CutKind::text)))
    return std::optional(ImportedCell{});
  if (seen.missing) return emptied(ImportDoubt::missing, 0, row, landing.column, "a missing value");
  return std::optional(
      ImportedCell{.number = isIn(*landing.one, landing.column, text) ? 1.0 : 0.0});
}

}  // namespace tolmer
