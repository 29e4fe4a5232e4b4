// A displayed table as HTML.
#pragma once

#include <string>
#include <string_view>

#include "tables/table_content.h"

namespace tolmer {

// A <table> with `title` as its caption and, below it, the key to its colours. A table too wide for
// an upright sheet of paper is marked to lie on a landscape one; one too wide for that is cut into
// several of some of the columns each. Figures of another kind below the first ones are a table of
// their own.
std::string tableHtml(const TableContent& table, std::string_view title);

}  // namespace tolmer
