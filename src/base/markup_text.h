// Plain text and colours inside HTML and SVG.
#pragma once

#include <string>
#include <string_view>

namespace tolmer {

// Text as the content of an element or of a quoted attribute. Control characters, which markup may
// not hold, become blanks, but for tabs and line ends.
std::string markupText(std::string_view text);

// "#00ffff", of parts from 0 to 255.
std::string hexColour(unsigned red, unsigned green, unsigned blue);

}  // namespace tolmer
