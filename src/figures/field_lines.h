// Lists in the course's folders: a line an entry, its fields divided by vertical bars.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"

namespace tolmer {

struct FieldLine {
  int line;                         // of the file, from 1
  std::vector<std::string> fields;  // without the blanks around them
};

// All entries of a list; empty lines and those that begin with # are none. Every entry must have
// `count` fields: the error names the first that has not.
Result<std::vector<FieldLine>> fieldLines(const std::string& fileName, std::string_view text,
                                          std::size_t count);

// Where errors about an entry are found: "file:line".
std::string lineOf(const std::string& fileName, const FieldLine& entry);

// The parts of a text between blanks.
std::vector<std::string> wordsOf(std::string_view text);

}  // namespace tolmer
