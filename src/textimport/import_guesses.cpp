#include "textimport/import_guesses.h"
#include "textimport/missing_codes.h"

#include <algorithm>
#include <utility>

namespace tolmer {
namespace {

constexpr int stopped = 1;  // of short rows
constexpr int firstRowStopped = 2;

}  // namespace

std::string quotation(std::string_view field) {
  std::size_t end = 30;
  if (field.size() <= end) return "\"" + std::string(field) + "\"";
  while ((static_cast<unsigned char>(field[end]) & 0xC0) == 0x80) --end;
  return "\"" + std::string(field.substr(0, end)) + "...\"";
}

Result<ImportFindings> ImportFindings::of(const ImportSource& source, const ImportTarget& target,
                                          const ImportAnswers& answers,
                                          const ImportChoice& choice) {
  ImportFindings findings(target, answers, choice);
  if (const auto error = findings.findTable(source)) return *error;
  findings.lookAtFields();
  // How the text is cut decides everything else.
  if (!findings.questions_.empty() && !findings.questions_.front().chosen) {
    findings.rowsOfData_ = findings.dataRows();
    findings.describeVariables();
    findings.land();
    return findings;
  }
  findings.findFirstRow();
  findings.findHeading();
  findings.findUnits();
  findings.noteShortRows();
  findings.findLanding();
  if (const auto error = findings.findVariables()) return *error;
  if (findings.lacksCases_ || !findings.mustChoose_.empty()) return findings;
  findings.findShortRows();
  findings.findDecimalMark();
  findings.leaveOutUnplain();
  findings.findSigns();
  findings.findCodes();
  findings.findLikelyCodes();
  findings.findMissingAndWords();
  findings.noteKinds();
  findings.findGapsOnTop();
  return findings;
}

// Which cases and columns there are, and what becomes of them.
std::optional<Error> ImportFindings::findVariables() {
  rowsOfData_ = dataRows();
  describeVariables();
  if (auto error = chooseCases()) return error;
  if (!target_.hints.wanted) {
    takeChosenUses();
    if (isToBeChosenFrom()) {
      land();
      return findRoom();
    }
    findLabels();
    findWordColumns();
    findCodedColumns();
  } else if (auto error = findWantedDummies()) {
    return error;
  }
  findDates();
  land();
  if (landings_.empty()) return Error{"", "All columns are left out."};
  return findRoom();
}

void ImportFindings::lookAtFields() {
  const int rows = static_cast<int>(table_.rows.size());
  looks_.resize(table_.fields.size());
  uses_.assign(static_cast<std::size_t>(columns()), Use::number);
  for (int row = 0; row < rows; ++row) lookAtRow(row);
}

ImportFindings::FieldLook ImportFindings::lookAtText(std::string_view text) {
  FieldLook look{.shape = numberShape(text), .missing = isMissingMark(text)};
  look.isExact = dayOfDate(text).has_value();
  if (look.isExact) look.kind = CutKind::date;
  return look;
}

std::optional<double> ImportFindings::exact(int row, int column) const {
  if (!look(row, column).isExact) return std::nullopt;
  const int from = rowOf(row).from;
  const CutField* cut = from < 0 ? nullptr
                                 : &book_->table.field(static_cast<std::size_t>(from),
                                                       static_cast<std::size_t>(column));
  return cut && cut->kind != CutKind::text ? cut->number : dayOfDate(field(row, column));
}

void ImportFindings::lookAtRow(int row) {
  const auto& marks = target_.hints.missing;
  const TextTable::Row& at = rowOf(row);
  for (std::size_t i = 0; i < at.length; ++i) {
    const auto column = static_cast<int>(i);
    const std::string_view text = field(row, column);
    looks_[at.begin + i] = book_ ? lookAtCutField(row, column) : lookAtText(text);
    if (std::find(marks.begin(), marks.end(), text) != marks.end())
      looks_[at.begin + i] = FieldLook{.missing = true};
  }
}

std::string ImportFindings::place(int row, int column) const {
  if (book_) return book_->table.place(rowOf(row).line, static_cast<std::size_t>(column));
  return "line " + std::to_string(rowOf(row).line) + ", column " + std::to_string(column + 1);
}

std::string ImportFindings::nameOfRow(int row) const {
  return (book_ ? "Row " : "Line ") + std::to_string(rowOf(row).line);
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
  if (!mustChoose_.empty()) return Error{"", mustChoose_};
  for (const ImportQuestion& question : questions_)
    if (!question.chosen) return Error{"", "An answer is missing: " + question.text};
  if (answerTo(ImportDoubt::shortRows) == stopped ||
      answerTo(ImportDoubt::firstRow) == firstRowStopped)
    return Error{shortRow_, "The row is too short."};
  return std::nullopt;
}

}  // namespace tolmer
