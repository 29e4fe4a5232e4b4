// What the fields of a foreign table mean as numbers, and what is asked about them.
#include <algorithm>
#include <array>
#include <utility>

#include "textimport/import_guesses.h"

namespace tolmer {
namespace {

const std::string stop = "Do not bring the text in";
constexpr int markIsPoint = 0;
constexpr int markIsComma = 1;
constexpr int blankGroupsEmpty = 1;
constexpr int percentDivided = 1;
constexpr int percentEmpty = 2;
constexpr int currencyEmpty = 1;
constexpr int bracketsEmpty = 1;
constexpr int datesEmpty = 1;
constexpr int codesKept = 1;
constexpr int likelyCodesEmpty = 0;

}  // namespace

void ImportFindings::findDecimalMark() {
  using Marks = NumberShape::Marks;
  decimalMark_ = target_.hints.decimalMark;
  if (decimalMark_) return;
  std::array<Sighting, 6> seen;
  bool removes = false;
  eachValue([&](int row, int column, const FieldLook& seenField) {
    const Marks marks = seenField.shape.marks;
    seen[static_cast<std::size_t>(marks)].add(row, column);
    removes = removes || (marks == Marks::point && seenField.shape.groupedByMarks);
  });
  const auto of = [&seen](Marks marks) { return seen[static_cast<std::size_t>(marks)]; };
  const Sighting comma = of(Marks::comma).count ? of(Marks::comma) : of(Marks::eitherComma);
  if (of(Marks::point).count && !of(Marks::comma).count) {
    decimalMark_ = '.';
    if (removes || comma.count)
      notes_.push_back("The decimal mark is the point; commas between thousands were taken out.");
  } else if (comma.count == 0) {
    decimalMark_ = '.';
    // Three decimals throughout are usual; thousands in the writing of other countries look alike.
    if (of(Marks::eitherPoint).count) askDecimalMark(of(Marks::eitherPoint), markIsPoint);
  } else {
    const bool onlyComma = of(Marks::comma).count && !of(Marks::point).count;
    askDecimalMark(comma, onlyComma ? std::optional(markIsComma) : std::nullopt);
  }
}

void ImportFindings::askDecimalMark(const Sighting& seen, std::optional<int> preset) {
  const auto chosen =
      ask(ImportDoubt::decimalMark, "What is the decimal mark in " + seenAt(seen) + "?",
          {"Point", "Comma"}, preset);
  if (chosen) decimalMark_ = *chosen == markIsPoint ? '.' : ',';
}

void ImportFindings::findSigns() {
  Sighting groups;
  Sighting percents;
  Sighting currencies;
  Sighting brackets;
  eachValue([&](int row, int column, const FieldLook& seenField) {
    const NumberShape& shape = seenField.shape;
    if (!shape.isNumber()) return;
    if (shape.groupedByBlanks) groups.add(row, column);
    if (shape.percent) percents.add(row, column);
    if (shape.currency) currencies.add(row, column);
    if (shape.bracketed) brackets.add(row, column);
  });
  if (groups.count)
    ask(ImportDoubt::blankGroups,
        "There are blanks or apostrophes within numbers, first " + seenAt(groups) + ".",
        {"Take them out", leaveCellsEmpty}, std::nullopt);
  if (percents.count)
    ask(ImportDoubt::percent, "There are percent signs, first " + seenAt(percents) + ".",
        {"12% is 12", "12% is 0.12", leaveCellsEmpty}, std::nullopt);
  if (currencies.count)
    ask(ImportDoubt::currency, "There are signs of currency, first " + seenAt(currencies) + ".",
        {"Take the signs off", leaveCellsEmpty}, std::nullopt);
  if (brackets.count)
    ask(ImportDoubt::brackets, "There are numbers in brackets, first " + seenAt(brackets) + ".",
        {"(5) is -5", leaveCellsEmpty}, std::nullopt);
}

void ImportFindings::findMissingAndWords() {
  Sighting missing;
  Sighting words;
  eachValue([&](int row, int column, const FieldLook& seenField) {
    if (seenField.isExact) return;
    if (seenField.missing)
      missing.add(row, column);
    else if (!seenField.shape.fits(decimalMark_))
      words.add(row, column);
  });
  eachDummy([&](int row, int column, const FieldLook& seenField) {
    if (seenField.missing && seenField.kind == CutKind::text) missing.add(row, column);
  });
  if (missing.count)
    ask(ImportDoubt::missing, "Are these missing values? First " + seenAt(missing) + ".",
        {"Yes, empty cells", stop}, 0);
  if (words.count)
    ask(ImportDoubt::words, "There is text where numbers belong, first " + seenAt(words) + ".",
        {leaveCellsEmpty, stop}, std::nullopt);
}

// The check on leaving the editor knows a gap only below a column's first value.
void ImportFindings::findGapsOnTop() {
  if (target_.origin != TextOrigin::file || target_.hints.wanted || dataRows() < 1) return;
  const int top = firstDataRow();
  Sighting gaps;
  for (int column = 0; column < columns(); ++column)
    if (landsAs(Use::number, column) && kindOf(column, top) == VariableKind::numbers &&
        !look(top, column).shape.isNumber())
      gaps.add(top, column);
  if (gaps.count == 0) return;
  const std::string more =
      gaps.count > 1 ? " (" + std::to_string(gaps.count) + " columns in all)" : "";
  notes_.push_back("Column " + std::to_string(gaps.column + 1) + " begins without a value" + more +
                   ". Above a variable's first value, the analysis takes empty cells as 0.");
}

Result<std::optional<ImportedCell>> ImportFindings::cell(int row, const Landing& landing) const {
  const int column = landing.column;
  if (landing.one) return dummyCell(row, landing);
  const std::string_view text = field(row, column);
  if (landsAs(Use::label, column)) return std::optional(ImportedCell{.text = std::string(text)});
  if (text.empty()) return std::optional(ImportedCell{});
  if (landsAs(Use::undecided, column)) return std::optional<ImportedCell>();
  const FieldLook seen = look(row, column);
  if (seen.missing && seen.isExact && answerTo(ImportDoubt::missingCodes) != codesKept)
    return std::optional(ImportedCell{});
  if (seen.kind == CutKind::date) {
    const bool isAsked = std::any_of(questions_.begin(), questions_.end(), [](const auto& asked) {
      return asked.doubt == ImportDoubt::dates;
    });
    const auto answer = answerTo(ImportDoubt::dates);
    if (isAsked && !answer) return std::optional<ImportedCell>();
    if (answer == datesEmpty) return std::optional(ImportedCell{});
  }
  if (isLikelyCode(row, column)) {
    const auto answer = answerTo(ImportDoubt::likelyCodes);
    if (!answer) return std::optional<ImportedCell>();
    if (*answer == likelyCodesEmpty) return std::optional(ImportedCell{});
  }
  if (seen.isExact) return std::optional(ImportedCell{.number = exact(row, column)});
  if (seen.missing) return emptied(ImportDoubt::missing, 0, row, column, "a missing value");
  if (!decimalMark_) return std::optional<ImportedCell>();
  return numberCell(row, column, look(row, column).shape);
}

// The cell is empty where that is the answer, and an error where the answer was to stop.
Result<std::optional<ImportedCell>> ImportFindings::emptied(ImportDoubt doubt, int emptyChoice,
                                                            int row, int column,
                                                            std::string_view what) const {
  const auto answer = answerTo(doubt);
  if (!answer) return std::optional<ImportedCell>();
  if (*answer == emptyChoice) return std::optional(ImportedCell{});
  return Error{place(row, column),
               quotation(field(row, column)) + " is " + std::string(what) + "."};
}

Result<std::optional<ImportedCell>> ImportFindings::numberCell(int row, int column,
                                                               const NumberShape& shape) const {
  const auto percent = answerTo(ImportDoubt::percent);
  const auto number =
      fieldNumber(field(row, column), *decimalMark_,
                  percent == percentDivided ? Percent::divided : Percent::asWritten);
  if (!number) return emptied(ImportDoubt::words, 0, row, column, "no number");
  const auto groups = answerTo(ImportDoubt::blankGroups);
  const auto currency = answerTo(ImportDoubt::currency);
  const auto brackets = answerTo(ImportDoubt::brackets);
  if ((shape.groupedByBlanks && !groups) || (shape.percent && !percent) ||
      (shape.currency && !currency) || (shape.bracketed && !brackets))
    return std::optional<ImportedCell>();
  if ((shape.groupedByBlanks && groups == blankGroupsEmpty) ||
      (shape.percent && percent == percentEmpty) || (shape.currency && currency == currencyEmpty) ||
      (shape.bracketed && brackets == bracketsEmpty))
    return std::optional(ImportedCell{});
  return std::optional(ImportedCell{.number = number});
}

}  // namespace tolmer
