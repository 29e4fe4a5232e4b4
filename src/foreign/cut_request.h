// What is asked of a file, as words of a command line.
#pragma once

#include <string>
#include <vector>

#include "base/error.h"
#include "foreign/cut_table.h"

namespace tolmer {

std::vector<std::string> wordsOf(const CutRequest& request);
Result<CutRequest> requestFromWords(const std::vector<std::string>& words);

}  // namespace tolmer
