// Workbooks of Office Open XML (ECMA-376, transitional and strict): xlsx and xlsm.
#pragma once

#include "base/error.h"
#include "foreign/cut_table.h"
#include "foreign/readers/package.h"

namespace tolmer {

// The sheet that is asked for. Stored results count, formulas are not computed: one without a
// result is an error that names its cell. Only the sheet's own part and those it needs are read to
// their ends.
Result<CutBook> readXlsx(Package& package, const CutRequest& request);

// The part that a package begins with by its own list, as "xl/workbook.xml"; empty where it tells
// none.
std::string mainPart(Package& package);

}  // namespace tolmer
