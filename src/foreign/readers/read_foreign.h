// One foreign file of any kind to one table.
#pragma once

#include <string_view>

#include "base/error.h"
#include "foreign/cut_table.h"

namespace tolmer {

// The content decides, not a name. An error is a sentence that goes on from the file's name: "it is
// locked with a password". Without memory it throws std::bad_alloc.
Result<CutBook> readForeign(std::string_view bytes, const CutRequest& request);

}  // namespace tolmer
