// Whether a window's visible controls can all be seen and read.
#pragma once

#include <string>

#include "platform/control.h"

namespace tolmer::test {

// One line for each visible control that reaches out of its container, lies over another one, or
// whose text is cut off by the measure of platform/text_metrics.h; empty where all is right.
// What a panel shows by being scrolled may be larger than the panel. A curtain is a ground.
std::string layoutFaults(Container& container);

}  // namespace tolmer::test
