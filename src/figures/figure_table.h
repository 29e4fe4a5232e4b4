// A table display as a table of AsciiDoc, for the printed text.
#pragma once

#include <string>

#include "report/display_table.h"

namespace tolmer {

// The rows of the display, its first as header; the key explains only colours that are in use. The
// signs that AsciiDoc reads as marks within a word are not expected in the texts, bars and braces
// are escaped.
std::string figureTable(const DisplayTable& table);

}  // namespace tolmer
