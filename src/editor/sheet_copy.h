// Blocks of cells as the clipboard takes them.
#pragma once

#include <string>
#include <vector>

#include "editor/sheet_content.h"
#include "editor/sheet_paste.h"

namespace tolmer {

struct CopiedBlock {
  PasteTable table;  // for pasting inside the program
  // For other programs, cells divided by tabs, every row ended by a line feed; a cell with a tab, a
  // line end or a leading quotation mark in quotation marks.
  std::string exactText;  // all digits
  // For a table in a text: as on the screen where that says the whole number, else all digits.
  Matrix<std::string> texts;
  // Where they stand in the sheet.
  std::vector<int> rows, columns;
};

}  // namespace tolmer
