#include "sheet/sheet_find.h"

#include "sheet/sheet_entry.h"
#include "textimport/typed_number.h"

namespace tolmer {
namespace {

// In the same bytes, whatever the letters' case. The marks keep the blanks at both ends.
std::string folded(const std::string& text) {
  const std::string all = foldedName('|' + text + '|');
  return all.substr(1, all.size() - 2);
}

std::string compared(const FindWords& words, const std::string& text) {
  return words.matchCase ? text : folded(text);
}

bool isSameNumber(const FindWords& words, const DataCell& cell) {
  if (cell.kind != DataCell::Kind::number) return false;
  const NumberReading reading = readNumber(words.text);
  return reading.kind == NumberReading::Kind::number && reading.number == cell.number;
}

// What the cell reads after the replacing.
std::string replaced(const FindWords& words, const std::string& by, const DataCell& cell) {
  if (words.wholeCell || isSameNumber(words, cell)) return by;
  const std::string text = editText(cell);
  const std::string within = compared(words, text), part = compared(words, words.text);
  std::string result;
  std::size_t done = 0;
  for (auto at = within.find(part); at != std::string::npos; at = within.find(part, done)) {
    result += text.substr(done, at - done) + by;
    done = at + part.size();
  }
  return result + text.substr(done);
}

}  // namespace

bool isFound(const FindWords& words, const DataCell& cell) {
  if (words.text.empty() || cell.kind == DataCell::Kind::empty) return false;
  if (isSameNumber(words, cell)) return true;
  const std::string within = compared(words, editText(cell)), part = compared(words, words.text);
  return words.wholeCell ? within == part : within.find(part) != std::string::npos;
}

std::vector<CellAddress> foundCells(const FindWords& words, const SheetContent& content) {
  std::vector<CellAddress> found;
  for (int r = 0; r <= content.observations(); ++r)
    for (int c = 0; c <= content.variables(); ++c)
      if (isFound(words, content.cells(r, c))) found.push_back({r, c});
  return found;
}

ReplaceOutcome replace(SheetEdit& edit, const FindWords& words, const std::string& by,
                       std::span<const CellAddress> cells) {
  ReplaceOutcome outcome;
  for (const CellAddress at : cells) {
    auto entry = cellFromText(edit, at, replaced(words, by, edit.cell(at)));
    if (!entry) {
      if (outcome.refused++ > 0) continue;
      outcome.reason = entry.error().message();
      outcome.refusedAt = at;
      continue;
    }
    edit.put(at, std::move(entry->cell));
    edit.showAt({at, at});
    ++outcome.cells;
  }
  return outcome;
}

}  // namespace tolmer
