// What the window says of each class of failure.
#pragma once

#include <string>
#include <string_view>

#include "symbolfile/file_layer.h"

namespace tolmer {

std::string_view failureDescription(FailureClass kind);

// The possible causes. A fault of format has the lexical message instead.
std::string failureCauses(const FileFailure& failure);

}  // namespace tolmer
