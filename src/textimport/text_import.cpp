#include "textimport/text_import.h"

#include <algorithm>
#include <limits>

#include "base/data_limits.h"
#include "foreign/cut_request.h"
#include "textimport/import_guesses.h"
#include "textimport/missing_codes.h"
#include "textimport/typed_number.h"

namespace tolmer {
namespace {

constexpr int allRows = std::numeric_limits<int>::max() / 2;

std::string shownText(const ImportFindings& findings, int row, const Landing& landing) {
  const auto cell = findings.cell(row, landing);
  if (!cell || !*cell) return std::string(findings.field(row, landing.column));
  return (*cell)->number ? exactText(*(*cell)->number) : (*cell)->text;
}

}  // namespace

struct TextImport::Look {
  ImportAnswers answers;
  ImportChoice choice;
  Result<ImportFindings> findings;
};

const TextImport::Look& TextImport::look(const ImportAnswers& answers,
                                         const ImportChoice& choice) const {
  if (last_ && last_->answers == answers && last_->choice == choice) return *last_;
  last_.reset();  // two of them would take twice the room
  last_ = std::make_shared<const Look>(Look{answers, choice, findings(answers, choice)});
  return *last_;
}

Result<ImportFindings> TextImport::findings(const ImportAnswers& answers,
                                            const ImportChoice& choice) const {
  const auto source = sourceFor(answers);
  if (!source) return source.error();
  auto found = ImportFindings::of(*source, target_, answers, choice);
  if (!found || !found->lacksCases() || !readBook_) return found;
  const auto whole = withChosenCases(*source, *found, choice);
  if (!whole) return whole.error();
  return ImportFindings::of(*whole, target_, answers, choice);
}

bool ImportPreview::isAnswered() const {
  return std::all_of(questions.begin(), questions.end(),
                     [](const ImportQuestion& question) { return question.chosen.has_value(); }) &&
         mustChoose.empty();
}

Result<TextImport> TextImport::read(std::string bytes, ImportTarget target) {
  auto text = foreignText(std::move(bytes));
  if (!text) return text.error();
  return TextImport({std::make_shared<const std::string>(std::move(*text))}, target);
}

TextImport TextImport::of(CutBook book, ReadBook readBook, ImportTarget target) {
  TextImport import({nullptr, std::make_shared<const CutBook>(std::move(book))}, target);
  import.readBook_ = std::move(readBook);
  return import;
}

Result<ImportSource> TextImport::sourceFor(const ImportAnswers& answers) const {
  const auto answer = answers.find(ImportDoubt::sheet);
  if (!source_.book || answer == answers.end()) return source_;
  const auto order = sheetsToRead(*source_.book);
  const auto chosen = static_cast<std::size_t>(answer->second);
  if (chosen >= order.size() || order[chosen] == source_.book->sheet) return source_;
  auto other = readAgain({.sheet = source_.book->sheets[order[chosen]].name});
  if (!other) return other.error();
  return ImportSource{nullptr, std::move(*other)};
}

Result<std::shared_ptr<const CutBook>> TextImport::readAgain(const CutRequest& request) const {
  std::string key;
  for (const std::string& word : wordsOf(request)) key += word + '\n';
  auto& known = readBefore_[key];
  if (known) return known;
  auto read = readBook_(request);
  if (!read) return read.error();
  known = std::make_shared<const CutBook>(std::move(*read));
  return known;
}

namespace {

// The numbers of the cases that meet the condition; `book` has the columns that it looks at.
Result<std::vector<int>> casesIn(const CutTable& cut, int rowsAbove, const CaseCondition& condition,
                                 const std::vector<int>& columns) {
  std::vector<int> met;
  const auto fieldIn = [&](std::size_t row, int number, std::string& text, std::string& label) {
    ConditionField seen;
    for (std::size_t column = 0; column < cut.columns.size(); ++column) {
      if (cut.columns[column].number != number) continue;
      const CutField& field = cut.field(row, column);
      text = cellText(cut.text(field));
      seen.isMissing = text.empty() || field.kind >= CutKind::error || isMissingMark(text);
      if (field.isNumber() || field.kind == CutKind::date) seen.number = field.number;
      if (field.kind == CutKind::text) seen.number = fieldNumber(text, '.');
      for (const auto& [value, name] : cut.columns[column].valueLabels)
        if (value == text) label = name;
    }
    seen.text = text;
    seen.label = label;
    return seen;
  };
  for (std::size_t row = static_cast<std::size_t>(rowsAbove); row < cut.rows(); ++row) {
    std::string text;
    std::string label;
    if (condition.isMetBy([&](std::size_t column) {
          label.clear();
          return fieldIn(row, columns[column], text, label);
        }))
      met.push_back(cut.rowNumbers[row]);
  }
  return met;
}

}  // namespace

// The file is read again for the cases that were chosen; of a very wide one, for the columns.
Result<ImportSource> TextImport::withChosenCases(const ImportSource& source,
                                                 const ImportFindings& found,
                                                 const ImportChoice& choice) const {
  const CutBook& book = *source.book;
  const int above = found.rowsAbove();
  CutRequest request{
      .sheet = book.sheets[book.sheet].name, .head = above, .rows = above + found.roomForCases()};
  const auto fields = static_cast<std::size_t>(request.rows) * book.table.columns.size();
  if (fields > mostCutFields && choice.columns)
    request.columns = {choice.columns->begin(), choice.columns->end()};
  int met = found.cases();
  if (choice.cases->way == CaseChoice::Way::every) {
    request.every = std::max(choice.cases->every, 1);
    met = (found.cases() + request.every - 1) / request.every;
  }
  if (choice.cases->way == CaseChoice::Way::where) {
    auto numbers = numbersOfCases(found, request);
    if (!numbers) return numbers.error();
    if (numbers->empty()) return Error{"", "No case meets the condition."};
    met = static_cast<int>(numbers->size());
    numbers->resize(std::min(numbers->size(), static_cast<std::size_t>(found.roomForCases())));
    request.only = std::move(*numbers);
  }
  auto read = readAgain(request);
  if (!read) return read.error();
  return ImportSource{nullptr, std::move(*read), met};
}

// Of all cases of the file, by the columns that the condition looks at.
Result<std::vector<int>> TextImport::numbersOfCases(const ImportFindings& found,
                                                    const CutRequest& request) const {
  const auto condition = found.condition();
  if (!condition) return condition.error();
  std::vector<int> columns;
  for (int column = 0; column < found.columns(); ++column)
    columns.push_back(found.columnNumber(column));
  CutRequest whole{.sheet = request.sheet, .head = request.head, .rows = allRows};
  for (const std::size_t column : condition->columns()) whole.columns.push_back(columns[column]);
  const auto read = readBook_(whole);
  if (!read) return read.error();
  if (static_cast<int>(read->table.rows()) < read->table.rowsInAll)
    return Error{"", "The condition looks at more of the file than can be read at once."};
  return casesIn(read->table, request.head, *condition, columns);
}

Result<ImportPreview> TextImport::preview(const ImportAnswers& answers,
                                          const ImportChoice& choice) const {
  const auto& findings = look(answers, choice).findings;
  if (!findings) return findings.error();
  ImportPreview preview{.questions = findings->questions(),
                        .notes = target_.hints.notes,
                        .headings = findings->headings(),
                        .firstRow = findings->firstRow(),
                        .firstColumn = findings->firstColumn(),
                        .rows = findings->dataRows(),
                        .variables = findings->variables(),
                        .cases = findings->cases(),
                        .roomForCases = findings->roomForCases(),
                        .roomForVariables = findings->roomForVariables(),
                        .taken = findings->taken(),
                        .mustChoose = findings->mustChoose()};
  const auto& found = findings->notes();
  preview.notes.insert(preview.notes.end(), found.begin(), found.end());
  for (int i = 0; i < std::min(shownRows, preview.rows); ++i) {
    auto& row = preview.shown.emplace_back();
    for (const Landing& landing : findings->landings())
      row.push_back(shownText(*findings, findings->firstDataRow() + i, landing));
  }
  return preview;
}

Result<NamedTable> TextImport::named(const ImportAnswers& answers,
                                     const ImportChoice& choice) const {
  const auto& findings = look(answers, choice).findings;
  if (!findings) return findings.error();
  if (const auto refused = findings->refusal()) return *refused;
  return findings->namedTable();
}

Result<ImportedTable> TextImport::apply(const ImportAnswers& answers,
                                        const ImportChoice& choice) const {
  const auto& findings = look(answers, choice).findings;
  if (!findings) return findings.error();
  if (const auto refused = findings->refusal()) return *refused;
  const auto& landings = findings->landings();
  ImportedTable table{.headings = findings->headings(),
                      .firstRow = findings->firstRow(),
                      .firstColumn = findings->firstColumn(),
                      .cells = Matrix<ImportedCell>(findings->dataRows() - 1,
                                                    static_cast<int>(landings.size()) - 1),
                      .variables = findings->described(),
                      .title = findings->title(),
                      .choice = findings->choiceTold()};
  for (int row = 0; row < findings->dataRows(); ++row)
    for (std::size_t column = 0; column < landings.size(); ++column) {
      auto cell = findings->cell(findings->firstDataRow() + row, landings[column]);
      if (!cell) return cell.error();
      if (*cell) table.cells(row, static_cast<int>(column)) = std::move(**cell);
    }
  if (const auto source = sourceFor(answers);
      source && source->book && sheetsToRead(*source->book).size() > 1)
    table.sheet = source->book->sheets[source->book->sheet].name;
  return table;
}

}  // namespace tolmer
