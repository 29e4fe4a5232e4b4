#include "report/table_source.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <limits>
#include <optional>
#include <set>
#include <utility>

#include "base/data_limits.h"
#include "base/file_io.h"
#include "report/table_dataset.h"
#include "sheet/new_sheet.h"
#include "sheetfiles/editor_file.h"
#include "system/host_path.h"
#include "system/running_program.h"
#include "textimport/case_condition.h"
#include "textimport/plain_table.h"

namespace tolmer {
namespace {

// Of a text whose analysis takes more than a large page.
constexpr std::size_t largeTextBytes = 200000;
constexpr int anyNumber = std::numeric_limits<int>::max() / 2;

ImportTarget targetOf(const ReportOptions& options) {
  ImportTarget target{.observations = anyNumber, .variables = anyNumber};
  target.hints = options.import.hints;
  target.hints.wanted = columnsOf(options);
  return target;
}

Error inFile(const std::string& name, const Error& error) {
  return {error.where.empty() ? name : name + ", " + error.where, error.text};
}

ImportChoice choiceOf(const ReportOptions& options) {
  ImportChoice choice;
  if (!options.where.empty())
    choice.cases = CaseChoice{.way = CaseChoice::Way::where, .condition = options.where};
  return choice;
}

// What the import notes of a text can be seen in it; another program's file shows it to nobody.
enum class TellsNotes { no, yes };

// The table, unless something is left open that no option answers.
Result<NamedTable> answeredTable(const std::string& name, const TextImport& import,
                                 const ImportAnswers& answers, const ReportOptions& options,
                                 TellsNotes tellsNotes) {
  const ImportChoice choice = choiceOf(options);
  const auto preview = import.preview(answers, choice);
  if (!preview) return inFile(name, preview.error());
  for (const ImportQuestion& question : preview->questions)
    if (!question.chosen) return Error{name, askedByOption(question)};
  auto table = import.named(answers, choice);
  if (!table) return inFile(name, table.error());
  if (table->rows == 0) return Error{name, "there is no case below the names"};
  if (tellsNotes == TellsNotes::yes)
    for (const std::string& note : preview->notes)
      if (std::ranges::find(table->told, note) == table->told.end()) table->told.push_back(note);
  return table;
}

bool isPlain(const ReportOptions& options) {
  const ImportHints& hints = options.import.hints;
  return options.where.empty() && options.dummies.empty() && !hints.separator &&
         !hints.decimalMark && !hints.headingRow && hints.missing.empty();
}

CutField fieldOf(const DataCell& cell, CutTable& table) {
  CutField field;
  if (cell.kind == DataCell::Kind::text) {
    field.kind = CutKind::text;
    field.text = static_cast<std::uint32_t>(table.texts.size());
    table.texts.push_back(cell.text);
  } else if (cell.kind != DataCell::Kind::empty && std::isfinite(cell.number)) {
    field.kind = CutKind::number;
    field.number = cell.number;
  }
  return field;
}

bool columnIsUsed(const SheetContent& sheet, int column) {
  for (int row = 1; row <= sheet.observations(); ++row)
    if (sheet.cells(row, column).kind != DataCell::Kind::empty) return true;
  return false;
}

// A sheet's columns and rows that hold anything; of a formula its result.
CutBook bookOf(const SheetContent& sheet) {
  CutBook book{.format = "zmm", .sheets = {{"", false, true}}};
  CutTable& table = book.table;
  table.namesApart = true;
  table.title = aboutData(sheet);
  for (int column = 0; column <= sheet.variables(); ++column) {
    if (!columnIsUsed(sheet, column)) continue;
    const std::string& heading = sheet.cells(0, column).text;
    const std::string name = heading.empty() ? exitHeading(column, sheet.variables()) : heading;
    table.columns.push_back({.number = column, .name = name, .label = sheet.labels[column]});
  }
  for (int row = 1; row <= lastUsedRow(sheet); ++row) {
    if (!isUsed(sheet, row)) continue;
    table.rowNumbers.push_back(row);
    for (const CutColumn& column : table.columns)
      table.fields.push_back(fieldOf(sheet.cells(row, column.number), table));
  }
  table.rowsInAll = static_cast<int>(table.rows());
  return book;
}

ImportReader readerOf(const TableSource& source) {
  return source.reader ? *source.reader : ImportReader();
}

using ReadBook = std::function<Result<CutBook>(const CutRequest&)>;

ImportAnswers answersFor(const CutBook& book, const ImportOptions& options) {
  ImportAnswers answers = options.answers;
  const auto order = sheetsToRead(book);
  const auto chosen = std::find(order.begin(), order.end(), book.sheet);
  if (!options.sheet.empty() && chosen != order.end())
    answers[ImportDoubt::sheet] = static_cast<int>(chosen - order.begin());
  return answers;
}

bool isWhole(const CutTable& cut, const CutRequest& request) {
  const auto rows = static_cast<int>(cut.rows());
  return rows == cut.rowsInAll || rows == request.rows;
}

// The places of the columns that the options name; empty where they name none.
std::vector<int> wantedPlaces(const CutBook& book, const ReportOptions& options) {
  const WantedColumns wanted = columnsOf(options);
  ImportTarget target = targetOf(options);
  target.hints.wanted->dummies.clear();
  const auto preview = TextImport::of(book, {}, target).preview(answersFor(book, options.import));
  if (wanted.others || !preview || preview->headings.size() != book.table.columns.size()) return {};
  std::set<std::string> names(wanted.numbers.begin(), wanted.numbers.end());
  names.insert(wanted.dummies.begin(), wanted.dummies.end());
  names.insert(wanted.labels);
  std::set<std::size_t> looksAt;
  if (const auto condition = CaseCondition::of(options.where, preview->headings))
    for (const std::size_t column : condition->columns()) looksAt.insert(column);
  std::vector<int> places;
  for (std::size_t column = 0; column < preview->headings.size(); ++column) {
    const std::string& heading = preview->headings[column];
    if (names.contains(heading) || looksAt.contains(column))
      places.push_back(book.table.columns[column].number);
  }
  return places;
}

// Of a file that is too large for one table the columns that the options name.
Result<CutBook> wantedBook(const std::string& name, const ReadBook& read,
                           const ReportOptions& options) {
  CutRequest request{.sheet = options.import.sheet, .rows = anyNumber};
  // Titles and names above the cases.
  if (options.first > 0 && options.every == 1 && options.where.empty())
    request.rows = options.first + request.head;
  auto book = read(request);
  if (!book || isWhole(book->table, request)) return book;
  const std::string size = std::to_string(book->table.rowsInAll) + " rows and " +
                           std::to_string(book->table.columns.size()) + " columns";
  request.columns = wantedPlaces(*book, options);
  if (!request.columns.empty()) book = read(request);
  if (!book || isWhole(book->table, request)) return book;
  return Error{name,
               "it has " + size + ", more than can be read at once; take --first or --columns"};
}

void describe(SourcedTable& sourced, const CutTable& table) {
  sourced.title = cellText(table.title);
  for (const CutColumn& column : table.columns)
    if (std::string meaning = meaningOf(column.label, column.valueLabels); !meaning.empty())
      sourced.labels[cellText(column.name)] = std::move(meaning);
}

Result<SourcedTable> tableFromBook(const std::string& name, const ReadBook& read,
                                   const ReportOptions& options) {
  auto book = wantedBook(name, read, options);
  if (!book) return book.error();
  SourcedTable sourced{name, {}};
  describe(sourced, book->table);
  const ImportAnswers answers = answersFor(*book, options.import);
  auto table = answeredTable(name, TextImport::of(std::move(*book), {}, targetOf(options)), answers,
                             options, TellsNotes::yes);
  if (!table) return table.error();
  sourced.table = std::move(*table);
  return sourced;
}

// What is to be read: a text, or a file that comes cut.
struct OpenedTable {
  std::string name;
  std::string text{};
  ReadBook read{};
};

Result<OpenedTable> openedBytes(std::string name, std::string bytes) {
  if (!bytes.starts_with("ZMDATA ")) return OpenedTable{std::move(name), std::move(bytes)};
  const auto content = editorFileContent(bytes);
  if (!content) return Error{name, content.error().text};
  return OpenedTable{std::move(name), {}, [sheet = content->sheet](const CutRequest&) {
                       return Result(bookOf(sheet));
                     }};
}

Result<OpenedTable> openedInput(const TableSource& source) {
  const std::string name = "standard input";
  auto bytes = source.standardInput();
  if (!bytes) return Error{name, bytes.error().text};
  if (isForeign(*bytes))
    return OpenedTable{
        name,
        {},
        [name, whole = *std::move(bytes), reader = readerOf(source)](const auto& request) {
          return importBytes(name, whole, request, reader);
        }};
  if (bytes->size() > mostTextBytes) return Error{name, "it is larger than 16 MB"};
  return openedBytes(name, *std::move(bytes));
}

Result<OpenedTable> opened(const std::string& name, const TableSource& source) {
  if (name == "-") return openedInput(source);
  std::error_code isNoFile;
  const auto size = std::filesystem::file_size(host::pathOf(name), isNoFile);
  if (!isNoFile && size >= largeTextBytes) host::takeLargePages(1);
  auto bytes = readWholeFile(name, mostTextBytes);
  if (bytes ? isForeign(*bytes) : isForeignFile(name))
    return OpenedTable{name, {}, [name, reader = readerOf(source)](const CutRequest& request) {
                         return importFile(name, request, reader);
                       }};
  if (!bytes) return bytes.error();
  return openedBytes(name, *std::move(bytes));
}

// Cut in a wrong way, or of another sheet, nothing that is listed would be true.
std::optional<Error> openQuestion(const std::string& name, const ImportPreview& preview) {
  for (const ImportQuestion& question : preview.questions) {
    const bool decides =
        question.doubt == ImportDoubt::separator || question.doubt == ImportDoubt::heading;
    if (decides && !question.chosen) return Error{name, askedByOption(question)};
  }
  return std::nullopt;
}

}  // namespace

Result<ListedTable> listTable(const ReportOptions& options, const TableSource& source) {
  auto table = opened(options.file, source);
  if (!table) return table.error();
  ImportTarget target{.observations = anyNumber, .variables = anyNumber};
  target.hints = options.import.hints;
  ListedTable listed{.name = table->name};
  ImportAnswers answers = options.import.answers;
  auto book = table->read ? table->read({.sheet = options.import.sheet}) : Result(CutBook());
  if (!book) return book.error();
  if (table->read) {
    listed.title = cellText(book->table.title);
    for (const std::size_t sheet : sheetsToRead(*book))
      listed.sheets.push_back(book->sheets[sheet]);
    if (listed.sheets.size() > 1) listed.sheet = book->sheets[book->sheet].name;
    answers = answersFor(*book, options.import);
  }
  const auto import = table->read ? Result(TextImport::of(*std::move(book), table->read, target))
                                  : TextImport::read(std::move(table->text), target);
  if (!import) return inFile(listed.name, import.error());
  auto preview = import->preview(answers);
  if (!preview) return inFile(listed.name, preview.error());
  if (const auto open = openQuestion(listed.name, *preview)) return *open;
  listed.cases = preview->cases;
  listed.variables = std::move(preview->variables);
  return listed;
}

Result<NamedTable> tableFromText(const std::string& name, std::string bytes,
                                 const ReportOptions& options) {
  auto text = foreignText(std::move(bytes));
  if (!text) return inFile(name, text.error());
  auto plain = isPlain(options) ? PlainTable::take(*text) : std::nullopt;
  if (plain) {
    if (auto table = plain->named(columnsOf(options))) return std::move(*table);
    *text = std::move(*plain).release();
  }
  const auto import = TextImport::read(std::move(*text), targetOf(options));
  if (!import) return inFile(name, import.error());
  return answeredTable(name, *import, options.import.answers, options, TellsNotes::no);
}

Result<SourcedTable> readTable(const ReportOptions& options, const TableSource& source) {
  auto table = opened(options.file, source);
  if (!table) return table.error();
  if (table->read) return tableFromBook(table->name, table->read, options);
  auto named = tableFromText(table->name, std::move(table->text), options);
  if (!named) return named.error();
  return SourcedTable{std::move(table->name), *std::move(named)};
}

}  // namespace tolmer
