// Small operations on text that the help's readers share.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/trimmed.h"

namespace tolmer {

// Cut at every `separator`; the parts are trimmed and may be empty.
std::vector<std::string_view> splitAt(std::string_view text, char separator);

// Lines without their ends.
std::vector<std::string_view> linesOf(std::string_view text);

// ASCII letters small, everything else as it is.
std::string lowered(std::string_view text);

// The words of a text in small letters: runs of letters and digits, where every character beyond
// ASCII counts as a letter.
std::vector<std::string> wordsOf(std::string_view text);

}  // namespace tolmer
