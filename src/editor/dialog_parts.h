// What the editor's small dialogs have in common.
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "platform/buttons.h"
#include "platform/desktop.h"
#include "sheet/data_sheet.h"

namespace tolmer {

// Under what name a dialog offers a column: its heading, or where that is blank its letters.
std::string columnName(const DataSheet& sheet, int iVar);

// Where a cell is, in the words of formulas, and what it holds: "B3 = Var1, Obs 3:  20.5".
std::string describedCell(const DataSheet& sheet, CellAddress at);

// Several of them in few words: "B3", "B1:C20", "Obs 3 to 5", "B3 and 7 others".
std::string placeText(const std::vector<CellRange>& places, int variables);

// A text from data as the caption of a control in whose captions "&" is a mark.
std::string asCaption(const std::string& text);

// The first is pressed by Return, the second by Escape; they stand from left to right, so that the
// last one ends at `right`.
void placeCommands(std::initializer_list<Button*> buttons, Twips right, Twips top);
// Of what was not done, and why.
inline constexpr Colour refusalText = Colour::rgb(0xA8, 0x1E, 0x1E);
inline constexpr Twips commandHeight = pixels(28);
inline constexpr Twips dialogMargin = pixels(14);

// The page on title and labels.
inline constexpr long helpOnTitle = 103;
void showEditorHelp(Desktop& desktop, long context);

}  // namespace tolmer
