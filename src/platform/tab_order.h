// The order of the Tab key, and which label names which control.
#pragma once

#include <vector>

#include "platform/control.h"

namespace tolmer {

// What in there can have the focus, hidden and disabled ones and every option of a group included:
// in the order of construction or as a panel wants it.
std::vector<Control*> tabStops(const Container& container);

// Does Tab stop there as soon as it can be used? Of a group's options only at the one that is on,
// where one is.
bool isTabStop(const Control& control);

// Is `before` the label that names `after`, constructed just after it? Its marked letter leads
// there.
bool isLabelOf(const Control& before, const Control& after);

}  // namespace tolmer
