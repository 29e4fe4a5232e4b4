#include "textimport/text_import.h"

#include <algorithm>

#include "textimport/import_guesses.h"
#include "textimport/typed_number.h"

namespace tolmer {
namespace {

std::string shownText(const ImportFindings& findings, int row, int column) {
  const auto cell = findings.cell(row, column);
  if (!cell || !*cell) return findings.field(row, column);
  return (*cell)->number ? exactText(*(*cell)->number) : (*cell)->text;
}

}  // namespace

struct TextImport::Look {
  ImportAnswers answers;
  Result<ImportFindings> findings;
};

const TextImport::Look& TextImport::look(const ImportAnswers& answers) const {
  if (last_ && last_->answers == answers) return *last_;
  const auto source = sourceFor(answers);
  last_ = std::make_shared<const Look>(
      source ? Look{answers, ImportFindings::of(*source, target_, answers)}
             : Look{answers, source.error()});
  return *last_;
}

bool ImportPreview::isAnswered() const {
  return std::all_of(questions.begin(), questions.end(),
                     [](const ImportQuestion& question) { return question.chosen.has_value(); });
}

Result<TextImport> TextImport::read(std::string bytes, ImportTarget target) {
  auto text = foreignText(std::move(bytes));
  if (!text) return text.error();
  return TextImport({std::move(*text)}, target);
}

TextImport TextImport::of(CutBook book, ReadSheet readSheet, ImportTarget target) {
  TextImport import({{}, std::make_shared<const CutBook>(std::move(book))}, target);
  import.readSheet_ = std::move(readSheet);
  return import;
}

Result<ImportSource> TextImport::sourceFor(const ImportAnswers& answers) const {
  const auto answer = answers.find(ImportDoubt::sheet);
  if (!source_.book || answer == answers.end()) return source_;
  const auto order = sheetsToRead(*source_.book);
  const auto chosen = static_cast<std::size_t>(answer->second);
  if (chosen >= order.size() || order[chosen] == source_.book->sheet) return source_;
  const std::string& name = source_.book->sheets[order[chosen]].name;
  auto& known = otherSheets_[name];
  if (!known) {
    auto read = readSheet_(name);
    if (!read) return read.error();
    known = std::make_shared<const CutBook>(std::move(*read));
  }
  return ImportSource{{}, known};
}

Result<ImportPreview> TextImport::preview(const ImportAnswers& answers) const {
  const auto& findings = look(answers).findings;
  if (!findings) return findings.error();
  ImportPreview preview{findings->questions(),
                        findings->notes(),
                        findings->headings(),
                        findings->firstRow(),
                        findings->firstColumn(),
                        findings->dataRows(),
                        {}};
  for (int i = 0; i < std::min(shownRows, preview.rows); ++i) {
    auto& row = preview.shown.emplace_back();
    for (int column = 0; column < findings->columns(); ++column)
      row.push_back(shownText(*findings, findings->firstDataRow() + i, column));
  }
  return preview;
}

Result<NamedTable> TextImport::named(const ImportAnswers& answers) const {
  const auto& findings = look(answers).findings;
  if (!findings) return findings.error();
  if (const auto refused = findings->refusal()) return *refused;
  return findings->namedTable();
}

Result<ImportedTable> TextImport::apply(const ImportAnswers& answers) const {
  const auto& findings = look(answers).findings;
  if (!findings) return findings.error();
  if (const auto refused = findings->refusal()) return *refused;
  ImportedTable table{findings->headings(), findings->firstRow(), findings->firstColumn(),
                      Matrix<ImportedCell>(findings->dataRows() - 1, findings->columns() - 1)};
  for (int row = 0; row < findings->dataRows(); ++row)
    for (int column = 0; column < findings->columns(); ++column) {
      auto cell = findings->cell(findings->firstDataRow() + row, column);
      if (!cell) return cell.error();
      if (*cell) table.cells(row, column) = std::move(**cell);
    }
  return table;
}

}  // namespace tolmer
