// The pages of the book to read in beside the work: texts, pictures and steps as HTML, without what
// is chosen on them.
#pragma once

#include <string>

#include "notebook/book.h"
#include "platform/desktop.h"

namespace tolmer {

// All pages, that one in sight. Jumps are links "page:N" to the N-th of them, from 0; lines that
// begin with a number and a point are a numbered list. On that page the scenario that is on is the
// place called "chosen", unless it is the first: what stands above it belongs to all. Pictures lie
// in the program's folder (without a final backslash) or below it.
KeptPages keptPages(const Book& book, int iSection, int iPage, const std::string& programFolder);

}  // namespace tolmer
