// What the fields of a foreign table hold.
#include "editor/import_findings.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tolmer {
namespace {

const std::string stop = "Do not bring the text in";
const std::string leaveEmpty = "Leave those cells empty";

constexpr int markIsPoint = 0;
constexpr int markIsComma = 1;
constexpr int blankGroupsEmpty = 1;
constexpr int percentDivided = 1;
constexpr int percentEmpty = 2;
constexpr int currencyEmpty = 1;
constexpr int bracketsEmpty = 1;
constexpr int stopped = 1;  // of missing marks, words and short rows
constexpr int firstRowStopped = 2;

std::string quotation(const std::string& field) {
  constexpr std::size_t longest = 30;
  return "\"" + (field.size() > longest ? field.substr(0, longest) + "..." : field) + "\"";
}

DataCell textCell(std::string text) {
  DataCell cell;
  if (text.empty()) return cell;
  cell.kind = DataCell::Kind::text;
  cell.text = std::move(text);
  return cell;
}

}  // namespace

Result<ImportFindings> ImportFindings::of(const std::string& text, const ImportTarget& target,
                                          const ImportAnswers& answers) {
  ImportFindings findings(target, answers);
  if (const auto error = findings.findTable(text)) return *error;
  findings.lookAtFields();
  // How the text is cut decides everything else.
  if (!findings.questions_.empty() && !findings.questions_.front().chosen) return findings;
  findings.findFirstRow();
  findings.findHeading();
  findings.findUnits();
  findings.findLanding();
  if (const auto error = findings.findRoom()) return *error;
  findings.findShortRows();
  findings.findDecimalMark();
  findings.findSigns();
  findings.findMissingAndWords();
  findings.findGapsOnTop();
  return findings;
}

void ImportFindings::lookAtFields() {
  const int rows = static_cast<int>(table_.rows.size());
  looks_.resize(rows - 1, columns() - 1);
  for (int row = 0; row < rows; ++row) lookAtRow(row);
}

void ImportFindings::lookAtRow(int row) {
  for (int column = 0; column < columns(); ++column)
    looks_(row, column) = {numberShape(field(row, column)), isMissingMark(field(row, column))};
}

template <class See>
void ImportFindings::eachValue(See see) const {
  for (int row = firstDataRow(); row < static_cast<int>(table_.rows.size()); ++row)
    for (int column = 0; column < columns(); ++column)
      if (!landsAsLabel(column) && !field(row, column).empty()) see(row, column, look(row, column));
}

void ImportFindings::findDecimalMark() {
  using Marks = NumberShape::Marks;
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
        {"Take them out", leaveEmpty}, std::nullopt);
  if (percents.count)
    ask(ImportDoubt::percent, "There are percent signs, first " + seenAt(percents) + ".",
        {"12% is 12", "12% is 0.12", leaveEmpty}, std::nullopt);
  if (currencies.count)
    ask(ImportDoubt::currency, "There are signs of currency, first " + seenAt(currencies) + ".",
        {"Take the signs off", leaveEmpty}, std::nullopt);
  if (brackets.count)
    ask(ImportDoubt::brackets, "There are numbers in brackets, first " + seenAt(brackets) + ".",
        {"(5) is -5", leaveEmpty}, std::nullopt);
}

void ImportFindings::findMissingAndWords() {
  Sighting missing;
  Sighting words;
  eachValue([&](int row, int column, const FieldLook& seenField) {
    if (seenField.missing)
      missing.add(row, column);
    else if (!seenField.shape.fits(decimalMark_))
      words.add(row, column);
  });
  if (missing.count)
    ask(ImportDoubt::missing, "Are these missing values? First " + seenAt(missing) + ".",
        {"Yes, empty cells", stop}, 0);
  if (words.count)
    ask(ImportDoubt::words, "There is text where numbers belong, first " + seenAt(words) + ".",
        {leaveEmpty, stop}, std::nullopt);
}

// The check on leaving the editor knows a gap only below a column's first value.
void ImportFindings::findGapsOnTop() {
  if (target_.origin != TextOrigin::file || dataRows() < 1) return;
  const int top = firstDataRow();
  Sighting gaps;
  for (int column = 0; column < columns(); ++column)
    if (!landsAsLabel(column) && kindOf(column, top) == ColumnKind::numbers &&
        !look(top, column).shape.isNumber())
      gaps.add(top, column);
  if (gaps.count == 0) return;
  const std::string more =
      gaps.count > 1 ? " (" + std::to_string(gaps.count) + " columns in all)" : "";
  notes_.push_back("Column " + std::to_string(gaps.column + 1) + " begins without a value" + more +
                   ". Above a variable's first value, the analysis takes empty cells as 0.");
}

std::string ImportFindings::place(int row, int column) const {
  return "line " + std::to_string(table_.lines[static_cast<std::size_t>(row)]) + ", column " +
         std::to_string(column + 1);
}

std::string ImportFindings::seenAt(const Sighting& sighting) const {
  const std::string more =
      sighting.count > 1 ? ", " + std::to_string(sighting.count) + " in all" : "";
  return quotation(field(sighting.row, sighting.column)) + " (" +
         place(sighting.row, sighting.column) + more + ")";
}

std::optional<int> ImportFindings::ask(ImportDoubt doubt, std::string text,
                                       std::vector<std::string> choices,
                                       std::optional<int> preset) {
  const auto answer = answers_.find(doubt);
  const bool answered = answer != answers_.end() && answer->second >= 0 &&
                        answer->second < static_cast<int>(choices.size());
  if (answered) preset = answer->second;
  questions_.push_back({doubt, std::move(text), std::move(choices), preset});
  return preset;
}

std::optional<int> ImportFindings::answerTo(ImportDoubt doubt) const {
  for (const ImportQuestion& question : questions_)
    if (question.doubt == doubt) return question.chosen;
  return std::nullopt;
}

std::optional<Error> ImportFindings::refusal() const {
  for (const ImportQuestion& question : questions_)
    if (!question.chosen) return Error{"", "An answer is missing: " + question.text};
  if (answerTo(ImportDoubt::shortRows) == stopped ||
      answerTo(ImportDoubt::firstRow) == firstRowStopped)
    return Error{place(table_.firstShortRow, 0), "The row is too short."};
  return std::nullopt;
}

Result<std::optional<DataCell>> ImportFindings::cell(int row, int column) const {
  const std::string& text = field(row, column);
  if (landsAsLabel(column)) return std::optional(textCell(text));
  if (text.empty()) return std::optional(DataCell{});
  if (look(row, column).missing)
    return emptied(ImportDoubt::missing, 0, row, column, "a missing value");
  if (!decimalMark_) return std::optional<DataCell>();
  return numberCell(row, column, look(row, column).shape);
}

// The cell is empty where that is the answer, and an error where the answer was to stop.
Result<std::optional<DataCell>> ImportFindings::emptied(ImportDoubt doubt, int emptyChoice, int row,
                                                        int column, std::string_view what) const {
  const auto answer = answerTo(doubt);
  if (!answer) return std::optional<DataCell>();
  if (*answer == emptyChoice) return std::optional(DataCell{});
  return Error{place(row, column),
               quotation(field(row, column)) + " is " + std::string(what) + "."};
}

Result<std::optional<DataCell>> ImportFindings::numberCell(int row, int column,
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
    return std::optional<DataCell>();
  if ((shape.groupedByBlanks && groups == blankGroupsEmpty) ||
      (shape.percent && percent == percentEmpty) || (shape.currency && currency == currencyEmpty) ||
      (shape.bracketed && brackets == bracketsEmpty))
    return std::optional(DataCell{});
  DataCell cell;
  cell.kind = DataCell::Kind::number;
  cell.number = *number;
  return std::optional(cell);
}

}  // namespace tolmer
