#include "editor/dialog_parts.h"

#include "editor/sheet_number.h"
#include "formula/sheet_names.h"

namespace tolmer {

std::string columnName(const DataSheet& sheet, int iVar) {
  const std::string& heading = sheet.heading(iVar);
  return withoutOuterBlanks(heading).empty() ? "Column " + columnLetters(iVar) : heading;
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
