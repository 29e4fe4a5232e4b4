// Data files of gretl: XML, mostly packed by gzip.
#pragma once

#include <string_view>

#include "base/error.h"
#include "foreign/cut_table.h"

namespace tolmer {

Result<CutBook> readGdt(std::string_view document, const CutRequest& request);

}  // namespace tolmer
