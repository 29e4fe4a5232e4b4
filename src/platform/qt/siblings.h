// Where a widget that was made late belongs among those that are there already.
#pragma once

#include "platform/control.h"

namespace tolmer {

// Puts the control's widget under those constructed after it, into the order of the Tab key, and
// makes a label just before a control that takes the focus its buddy.
void takePlaceAmongSiblings(Control& control);

// Puts all that the Tab key stops at in a window into its order.
void orderTabStops(const Window& window);

}  // namespace tolmer
