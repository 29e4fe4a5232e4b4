// Texts of files that name their encoding.
#pragma once

#include <string>
#include <string_view>

namespace tolmer {

// Loads what converts the usual encodings, for a process that will not be allowed to open files.
void prepareEncodings();

// Bytes that are none of that encoding, or an encoding that nobody knows: UTF-8 where they are
// that, else Windows-1252; `guessed` is then set.
std::string utf8From(const std::string& encoding, std::string_view bytes, bool& guessed);

}  // namespace tolmer
