// A table on paper.
#pragma once

#include <string>

#include "report/page_writer.h"
#include "tables/table_content.h"

namespace tolmer {

// Heading, table, the key to its marks and its notes. A table too wide for an upright page has
// smaller letters, lies across a page where that is not enough, and is cut into blocks of columns
// below one another where that is not. A table stays on one page where it can; a longer one breaks
// between rows and repeats its heads.
void printTable(PageWriter& pages, const TableContent& table, const std::string& title);

}  // namespace tolmer
