// Plain text inside HTML and SVG.
#pragma once

#include <string>
#include <string_view>

namespace tolmer {

// Text as the content of an element or of a quoted attribute. Control characters, which markup may
// not hold, become blanks, but for tabs and line ends.
std::string markupText(std::string_view text);

}  // namespace tolmer
