// A picture as Scalable Vector Graphics 1.1, for the clipboard and for reports.
#pragma once

#include <string>
#include <string_view>

#include "platform/graph/picture.h"

namespace tolmer {

// One <svg> element without an XML declaration, so that it can stand in a page. Title and
// description (plain text) are what a screen reader says.
std::string writeSvg(const Picture& picture, std::string_view title, std::string_view description);

}  // namespace tolmer
