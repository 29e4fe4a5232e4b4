// Whether a book has room for what stands on its pages, in their headers and on its tabs.
#pragma once

#include <string>
#include <vector>

#include "notebook/book.h"

namespace tolmer {

// The title on the first page, and the chapter on all others, have one line.
bool titleFits(const Book& book);
bool chapterFits(const Book& book);

// The first section whose name leaves too little room for the tabs up to its own; 0 for none.
int firstTabBeyond(const Book& book);

// What of page `row` of the pages table does not fit, a sentence each: elements below the page's
// end, names of scenarios and descriptions of
// databases that are cut off. Pictures are looked up in the program's folder.
std::vector<std::string> pageOverflow(const Book& book, int row, const std::string& programFolder);

}  // namespace tolmer
