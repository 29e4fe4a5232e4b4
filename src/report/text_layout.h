// Text for a terminal: columns of characters, not bytes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/look.h"

namespace tolmer {

// How many columns a terminal takes for a UTF-8 text: none for a combining mark, two for the wide
// letters of East Asia, one for anything else. Line feeds are not expected.
std::size_t terminalWidth(std::string_view text);

// Filled up with blanks to that width; a longer text stays as it is.
std::string padded(std::string_view text, std::size_t width, Align align);

// The lines of a text broken at blanks to that width, each behind the indent. Line ends of the text
// itself count as blanks.
std::string wrapped(std::string_view text, std::size_t width, std::size_t indent);

// A bar of that many eighths of a column.
std::string barText(int eighths);

}  // namespace tolmer
