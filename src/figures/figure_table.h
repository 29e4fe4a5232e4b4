// A table display as a table of AsciiDoc, for the printed text.
#pragma once

#include <string>

#include "tables/table_content.h"

namespace tolmer {

// The rows of the display, its first as header, its key last. The signs that AsciiDoc reads as
// marks within a word are not expected in the texts, bars and braces are escaped.
std::string figureTable(const TableContent& table);

}  // namespace tolmer
