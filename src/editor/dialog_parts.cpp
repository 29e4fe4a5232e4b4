#include "editor/dialog_parts.h"

#include <algorithm>

#include "base/trimmed.h"
#include "formula/sheet_names.h"
#include "textimport/typed_number.h"

namespace tolmer {

std::string columnName(const DataSheet& sheet, int iVar) {
  const std::string& heading = sheet.heading(iVar);
  return trimmed(heading).empty() ? "Column " + columnLetters(iVar) : heading;
}

std::string describedCell(const DataSheet& sheet, CellAddress at) {
  if (at.row == 0) {
    const std::string& label = sheet.label(at.column);
    return "Name of column " + columnLetters(at.column) + (label.empty() ? "" : ":  " + label);
  }
  const std::string row = std::to_string(at.row);
  const std::string content = sheet.editText(at.row, at.column);
  return columnLetters(at.column) + row + " = " + sheet.heading(at.column) + ", Obs " + row +
         (content.empty() ? "" : ":  " + content);
}

std::string placeText(const std::vector<CellRange>& places, int variables) {
  const auto [first, last] = places.front();
  const bool isCell = first == last;
  std::string text;
  if (first.column == 0 && last.column == variables)
    text = "Obs " + std::to_string(std::max(first.row, 1)) +
           (last.row > first.row ? " to " + std::to_string(last.row) : "");
  else if (last.row == 0)
    text = (isCell ? "the name of column " : "the names of columns ") +
           columnLetters(first.column) + (isCell ? "" : " to " + columnLetters(last.column));
  else
    text = columnLetters(first.column) + std::to_string(std::max(first.row, 1)) +
           (isCell ? "" : ":" + columnLetters(last.column) + std::to_string(last.row));
  const auto others = places.size() - 1;
  if (others == 0) return text;
  return text + " and " + std::to_string(others) + (others == 1 ? " other" : " others");
}

std::string asCaption(const std::string& text) {
  std::string caption;
  for (const char letter : text) caption += letter == '&' ? "&&" : std::string(1, letter);
  return caption;
}

void placeCommands(std::initializer_list<Button*> buttons, Twips right, Twips top) {
  constexpr Twips width = pixels(88);
  constexpr Twips gap = pixels(8);
  const auto count = static_cast<float>(buttons.size());
  Twips left = right - count * width - (count - 1) * gap;
  for (Button* button : buttons) {
    button->setPlace({left, top, width, commandHeight});
    left += width + gap;
  }
  (*buttons.begin())->setDefault(true);
  (*(buttons.begin() + 1))->setCancel(true);
}

void showEditorHelp(Desktop& desktop, long context) {
  desktop.showHelp({"dataedit", HelpRequest::Kind::topic, context});
}

}  // namespace tolmer
