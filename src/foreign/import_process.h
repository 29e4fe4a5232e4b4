// Foreign files read by a program of its own, `tolimport`: it may crash, hang or be fooled, and
// what began the reading goes on.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "base/error.h"
#include "foreign/cut_table.h"

namespace tolmer {

// Where the program lies.
std::string importProgram();

struct ImportReader {
  std::string program = importProgram();
  std::chrono::milliseconds patience{15000};  // by the clock; it has 5 s of the processor at most
};

// Whether a file is known to be no text but another program's, by its first bytes. False also where
// it cannot be read.
bool isForeignFile(const std::string& hostFileName);
bool isForeign(std::string_view bytes);

// The table of a file, or a sentence that names the file and what is wrong with it. A table only
// comes whole, and from a reader that ended well.
Result<CutBook> importFile(const std::string& hostFileName, const CutRequest& request,
                           const ImportReader& reader = {});

// The same of bytes that came another way; `name` is what errors name.
Result<CutBook> importBytes(const std::string& name, std::string_view bytes,
                            const CutRequest& request, const ImportReader& reader = {});

}  // namespace tolmer
