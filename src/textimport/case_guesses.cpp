// Which cases of a foreign table are taken, and whether what is taken has room.
#include <algorithm>
#include <limits>
#include <utility>

#include "base/sentence_parts.h"
#include "textimport/import_guesses.h"

namespace tolmer {
Result<CaseCondition> ImportFindings::condition() const {
  auto condition = CaseCondition::of(choice_.cases->condition, columnNames());
  if (!condition) return Error{"", "The condition: " + condition.error().text + "."};
  return condition;
}

// nullopt where nothing is chosen, or the cases are chosen already.
std::optional<Error> ImportFindings::chooseCases() {
  rowsOfData_ = dataRows();
  const bool isPart = book_ && book_->table.rowsInAll > static_cast<int>(book_->table.rows());
  cases_ = isPart ? book_->table.rowsInAll - rowsAbove() : dataRows();
  if (!choice_.cases) return std::nullopt;
  const auto way = choice_.cases->way;
  const bool needsAll = way != CaseChoice::Way::first;
  lacksCases_ = isPart && !casesMet_ && (needsAll || dataRows() < std::min(cases_, roomForCases()));
  if (casesMet_) {
    tellCases(*casesMet_);
    return std::nullopt;
  }
  const auto meet = casesThatMeet();
  if (!meet) return meet.error();
  if (!lacksCases_ && meet->empty()) return Error{"", "No case meets the condition."};
  if (!meet->empty()) keepCases(*meet);
  if (!lacksCases_)
    tellCases(way == CaseChoice::Way::first ? cases_ : static_cast<int>(meet->size()));
  return std::nullopt;
}

Result<std::vector<int>> ImportFindings::casesThatMeet() const {
  const CaseChoice& cases = *choice_.cases;
  std::vector<int> rows;
  const int step = cases.way == CaseChoice::Way::every ? std::max(cases.every, 1) : 1;
  for (int row = firstDataRow(); row < static_cast<int>(table_.rows.size()); row += step)
    rows.push_back(row);
  if (cases.way != CaseChoice::Way::where) return rows;
  const auto condition = this->condition();
  if (!condition) return condition.error();
  std::erase_if(rows, [&](int row) {
    std::string label;
    return !condition->isMetBy([&](std::size_t at) {
      const int column = static_cast<int>(at);
      const FieldLook seen = look(row, column);
      const std::string_view text = field(row, column);
      label = labelOf(column, text);
      ConditionField seenField{seen.missing || text.empty(), exact(row, column), text, label};
      if (!seen.isExact)
        seenField.number = fieldNumber(text, target_.hints.decimalMark.value_or('.'));
      return seenField;
    });
  });
  return rows;
}

// As many of these rows as there is room for.
void ImportFindings::keepCases(const std::vector<int>& rows) {
  const auto kept = std::min(rows.size(), static_cast<std::size_t>(std::max(roomForCases(), 0)));
  const int first = firstDataRow();
  std::vector<TextTable::Row> taken(table_.rows.begin(), table_.rows.begin() + first);
  for (std::size_t i = 0; i < kept; ++i) {
    taken.push_back(rowOf(rows[i]));
    caseNumbers_.push_back(rows[i] - first + 1);
  }
  table_.rows = std::move(taken);
}

void ImportFindings::tellCases(int met) {
  const CaseChoice& cases = *choice_.cases;
  const int taken = dataRows();
  std::string told = "Of " + std::to_string(cases_) + " cases ";
  if (cases.way == CaseChoice::Way::first) {
    if (taken == cases_) return;
    told += "the first " + std::to_string(taken) + " were taken";
  } else {
    told +=
        std::to_string(met) +
        (cases.way == CaseChoice::Way::every
             ? (met == 1 ? " is one of every " : " are one of every ") + std::to_string(cases.every)
             : (met == 1 ? " meets \"" : " meet \"") + cases.condition + "\"");
    told += taken < met  ? ", and the first " + std::to_string(taken) + " of them were taken"
            : taken == 1 ? " and was taken"
                         : " and were taken";
  }
  choiceTold_.push_back(told + "; " + std::to_string(cases_ - taken) + " were not.");
}

// Those that were there to be taken, by their names.
void ImportFindings::tellVariables() {
  if (!choice_.columns) return;
  constexpr int mostNamed = 5;
  int leftOut = 0;
  std::string names;
  for (int column = 0; column < columns(); ++column) {
    if (isTaken(column)) continue;
    if (leftOut++ < mostNamed) names += (names.empty() ? "" : ", ") + variable(column).name;
  }
  if (leftOut == 0) return;
  names += leftOut > mostNamed ? ", ..." : ".";
  choiceTold_.push_back("Of " + std::to_string(columns()) + " variables " +
                        std::to_string(columns() - leftOut) + " were taken, " +
                        std::to_string(leftOut) + " were not: " + names);
}

// Nobody is asked about columns before they are chosen. The first one may be labels.
bool ImportFindings::isToBeChosenFrom() const {
  const auto ticked = choice_.columns ? static_cast<int>(choice_.columns->size()) : columns();
  return (!choice_.cases && cases_ > target_.observations) || ticked - 1 > target_.variables;
}

// What the whole sheet could not hold is to be chosen from; a block for which its place is too
// small belongs elsewhere.
std::optional<Error> ImportFindings::findRoom() {
  tellVariables();
  notes_.insert(notes_.begin(), choiceTold_.begin(), choiceTold_.end());
  const std::string whole = book_ ? "The file has " : "The text has ";
  const int cases = choice_.cases ? dataRows() : cases_;
  if (cases > roomForCases() && cases <= target_.observations)
    return Error{"", whole + std::to_string(cases) + " rows of data; there is room for " +
                         std::to_string(roomForCases()) + "."};
  if (taken() > roomForVariables() && taken() <= target_.variables)
    return Error{"", whole + std::to_string(taken()) + " columns of data; there is room for " +
                         std::to_string(roomForVariables()) + "."};
  if (cases > roomForCases() || taken() > roomForVariables())
    mustChoose_ = whole + counted(cases, "row") + " and " + counted(taken(), "column") +
                  " of data; there is room for " + std::to_string(roomForCases()) + " and " +
                  std::to_string(roomForVariables()) + ".";
  return std::nullopt;
}

}  // namespace tolmer
