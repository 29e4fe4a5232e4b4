// Whether the pages of a book have room for what stands on them.
#pragma once

#include <string>
#include <vector>

#include "notebook/book.h"

namespace tolmer {

// What of page `row` of the pages table does not fit, a sentence each: elements below the page's
// end, names of scenarios that are cut off. Pictures are looked up in the program's folder.
std::vector<std::string> pageOverflow(const Book& book, int row, const std::string& programFolder);

}  // namespace tolmer
