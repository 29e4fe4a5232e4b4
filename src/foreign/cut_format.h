// A cut table on its way from one process to another: lines of fields divided by tabs, the last
// one "end", without which nothing counts.
#pragma once

#include <string>
#include <string_view>

#include "base/error.h"
#include "foreign/cut_table.h"

namespace tolmer {

// Either the table or the sentence that stands in its place.
std::string cutText(const Result<CutBook>& book);

// The same back. An error without a place where the text is no such table to its last line: it is
// that of another program, cut off or damaged. Texts come out without control characters.
Result<CutBook> bookFromCutText(std::string_view text);

}  // namespace tolmer
