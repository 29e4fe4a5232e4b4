// Signs and numbers that stand for missing values in foreign tables.
#pragma once

#include <string_view>

namespace tolmer {

// A sign of a missing value as statistics programs and spreadsheets write them: NA . - * #DIV/0!
bool isMissingMark(std::string_view field);

}  // namespace tolmer
