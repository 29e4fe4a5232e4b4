// Which sheet of a workbook is read.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/error.h"
#include "foreign/cut_table.h"

namespace tolmer {

// The place of the sheet that is asked for by its name, or by its number from 1; without a wish
// that of the first with cells, hidden ones last. An error lists the names.
Result<std::size_t> chosenSheet(const std::vector<SheetInfo>& sheets, const std::string& wish);

}  // namespace tolmer
