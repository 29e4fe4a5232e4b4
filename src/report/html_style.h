// How the page of a report looks.
#pragma once

#include <string_view>

namespace tolmer {

// A style sheet without any outside resource. On paper (A4) displays keep together and pages break
// between them; lists longer than a page begin a new one, break between rows and repeat their
// heads; a table too wide for an upright page lies on a landscape one in smaller letters.
extern const std::string_view pageStyle;

}  // namespace tolmer
