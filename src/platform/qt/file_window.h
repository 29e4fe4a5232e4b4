#pragma once

#include <optional>

#include "platform/file_question.h"
#include "platform/qt/mirror.h"

namespace tolmer {

enum class FileUse { open, save };

// The toolkit's own dialog, which looks and acts alike on every desktop. Returns when it is closed.
std::optional<ChosenFile> askForFile(Mirror& mirror, const FileQuestion& question, FileUse use);

}  // namespace tolmer
