// The sheet as text data for other programs.
#pragma once

#include <string>

#include "sheet/sheet_content.h"

namespace tolmer {

// A row of headings, by default where there are none, then the cases down to the last one with
// content; columns as far as there are data or names of the user's own, the labels only where there
// are some. Numbers have the shortest digits that give them back, with a point; formulas stand as
// their results, an error as nothing. Fields are quoted where they hold the separator, a quote, a
// line end or blanks at an end. Lines end in a line feed. `separator` is ',' or a tab.
std::string sheetText(const SheetContent& sheet, char separator);

}  // namespace tolmer
