// Spreadsheets of OpenDocument (ISO/IEC 26300): ods, and fods, which is the same in one file.
#pragma once

#include "base/error.h"
#include "foreign/cut_table.h"
#include "foreign/readers/package.h"

namespace tolmer {

// The sheet that is asked for, in one pass. A cell's stored value counts, never the text it shows.
Result<CutBook> readOds(Package& package, const CutRequest& request);
Result<CutBook> readFods(std::string_view document, const CutRequest& request);

}  // namespace tolmer
