// Bytes as a text file and as the clipboard's text, with any answers, and of a large table any
// variables and cases. The first two bytes choose where it lands and what is answered.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "textimport/text_import.h"

namespace {

using namespace tolmer;

ImportTarget targetOf(std::uint8_t choice) {
  return {.origin = choice & 1 ? TextOrigin::clipboard : TextOrigin::file,
          .row = (choice >> 1) & 3,
          .column = (choice >> 3) & 3,
          .observations = choice & 32 ? 5 : 500,
          .variables = choice & 32 ? 4 : 50};
}

ImportAnswers answersOf(std::uint8_t choice, const ImportPreview& preview) {
  ImportAnswers answers;
  for (const ImportQuestion& question : preview.questions) {
    const auto choices = static_cast<int>(question.choices.size());
    answers[question.doubt] = (choice + static_cast<int>(question.doubt) * (choice >> 4)) % choices;
  }
  return answers;
}

ImportChoice choiceOf(std::uint8_t choice, const ImportPreview& preview) {
  ImportChoice chosen{.columns = std::set<int>()};
  for (const ImportVariable& variable : preview.variables) {
    const bool fits = static_cast<int>(chosen.columns->size()) < preview.roomForVariables;
    if (fits && (variable.column + choice) % 3 > 0) chosen.columns->insert(variable.column);
    if (!variable.uses.empty())
      chosen.uses[variable.column] = variable.uses[choice % variable.uses.size()];
  }
  constexpr CaseChoice::Way ways[] = {CaseChoice::Way::first, CaseChoice::Way::every,
                                      CaseChoice::Way::where};
  chosen.cases = CaseChoice{ways[choice % 3], 1 + choice % 5, "a >= 1"};
  return chosen;
}

void check(const ImportedTable& table, const ImportTarget& target) {
  const int rows = table.cells.lastRow() + 1;
  const int columns = table.cells.lastColumn() + 1;
  if (table.firstRow < 1 || table.firstRow + rows - 1 > target.observations) std::abort();
  if (table.firstColumn < 0 || table.firstColumn + columns - 1 > target.variables) std::abort();
  for (int row = 0; row < rows; ++row)
    for (int column = 0; column < columns; ++column) {
      const ImportedCell& cell = table.cells(row, column);
      const bool isText = !cell.text.empty();
      if (isText && (table.firstColumn + column != 0 ||
                     cell.text.find_first_of("\t\n\r") != std::string::npos))
        std::abort();
      if (!std::isfinite(cell.number.value_or(0))) std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const ImportTarget target = targetOf(data[0]);
  const auto import =
      TextImport::read(std::string(reinterpret_cast<const char*>(data) + 2, size - 2), target);
  if (!import) return 0;
  // An answer may raise other questions, but not without end.
  ImportAnswers answers;
  ImportChoice choice;
  for (int round = 0; round < 8; ++round) {
    const auto preview = import->preview(answers, choice);
    if (!preview) return 0;
    const std::size_t before = answers.size();
    answers.merge(answersOf(data[1], *preview));
    if (answers.size() > before) continue;
    const bool wants = !preview->mustChoose.empty() || (data[0] & 64);
    if (choice.columns || !wants) break;
    choice = choiceOf(data[1], *preview);
  }
  const auto preview = import->preview(answers, choice);
  if (!preview) return 0;
  if (!preview->isAnswered() && preview->mustChoose.empty()) std::abort();
  if (const auto table = import->apply(answers, choice)) check(*table, target);
  return 0;
}
