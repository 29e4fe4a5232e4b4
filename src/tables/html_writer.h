// A displayed table as HTML, for a page and for the clipboard.
#pragma once

#include <string>
#include <string_view>

#include "tables/table_content.h"

namespace tolmer {

// That a page is printed on.
enum class Paper { a4, letter };

// A <table> with `title` as its caption and, below it, the key to its marks and its notes. A table
// too wide for an upright sheet of paper is marked to lie on a landscape one; one too wide for that
// is cut into several of some of the columns each. Figures of another kind below the first ones are
// a table of their own.
std::string tableHtml(const TableContent& table, std::string_view title, Paper paper = Paper::a4);

// The same for other programs, whole and with looks that need no style sheet. Numbers are marked so
// that spreadsheets read them alike in every country.
std::string copiedTableHtml(const TableContent& table);

}  // namespace tolmer
