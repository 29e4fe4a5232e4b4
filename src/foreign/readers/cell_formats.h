// Whether a spreadsheet's number format shows a number as a date, a time, a percentage or money.
#pragma once

#include <string_view>

#include "foreign/cut_table.h"

namespace tolmer {

// Of a format's code as ECMA-376 part 1, 18.8.31 describes it: number, percent, currency, time or
// date.
CutKind kindOfFormat(std::string_view code);

// Of the formats that are known by their number alone (18.8.30).
CutKind kindOfBuiltInFormat(int number);

}  // namespace tolmer
