// What the command line says of how a file is read: answers to the import's questions.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "textimport/text_import.h"

namespace tolmer {

struct ImportOptions {
  ImportHints hints;
  ImportAnswers answers;
  std::string sheet;  // name, or number from 1; empty: the only one
  bool isUsed = false;
};

// "--decimal" and all the others.
std::vector<std::string_view> importOptionNames();

// Takes one of them; a sentence where its value is none.
std::optional<std::string> takeImportOption(ImportOptions& options, std::string_view name,
                                            const std::string& value);

// The question as a sentence that says which option answers it.
std::string askedByOption(const ImportQuestion& question);

}  // namespace tolmer
