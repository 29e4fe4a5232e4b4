// What a spreadsheet's number format makes of a number.
#pragma once

#include <optional>
#include <string_view>

#include "foreign/cut_table.h"

namespace tolmer {

// Of a format's code as ECMA-376 part 1, 18.8.31 describes it: number, percent, currency, time or
// date.
CutKind kindOfFormat(std::string_view code);

// Of the formats that are known by their number alone (18.8.30).
CutKind kindOfBuiltInFormat(int number);

// "2024-03-05", "2024-03-05T14:30:00", with a fraction of a second or a Z: in days since
// 1899-12-30.
std::optional<double> daysOfIsoDate(std::string_view text);

// "PT14H30M00S" in days.
std::optional<double> daysOfIsoDuration(std::string_view text);

}  // namespace tolmer
