// The variables of a file, for somebody who is to name some of them.
#pragma once

#include <string>

#include "report/table_source.h"

namespace tolmer {

std::string variableListText(const ListedTable& table);

// An object with file, title, sheets, sheet, cases and variables; of each variable name, kind
// (numbers, codes, words, dates, empty), values, different (null beyond 50), label and categories.
std::string variableListJson(const ListedTable& table);

}  // namespace tolmer
