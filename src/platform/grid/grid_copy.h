// Cells as other programs take them from the clipboard.
#pragma once

#include <string>

#include "platform/desktop.h"
#include "platform/grid/sheet.h"

namespace tolmer {

// What is shown, cells divided by tabs, every row ended by a line feed. A cell with a tab, a line
// end or a quotation mark in front stands in quotation marks, those inside doubled; so spreadsheets
// read and write it. The block must lie in the sheet.
std::string copyText(const Sheet& sheet, const CellBlock& block);

// The same as a table for word processors, with alignment, headings and coloured backgrounds;
// numbers are marked so that spreadsheets read them alike in every country.
std::string copyHtml(const Sheet& sheet, const CellBlock& block);

// All cells but the headings beside them, both ways.
ClipboardContent copyOf(const Sheet& sheet);

}  // namespace tolmer
