// How a dialog stands on a screen that has no room for all of it.
#pragma once

#include "platform/window.h"

namespace tolmer {

struct DialogFit {
  Size shown;       // of its inside
  Twips footTop;    // what begins there or below it stays in view, what is above scrolls
  Twips footShift;  // so far to the left, where the window is wider than the room
};

// A dialog whose inside has the size `whole`, in that room; all in its own lengths. The foot is the
// row of buttons along the lower edge and what stands beside them; a window without one scrolls as
// a whole, and the foot begins at its end. The bars take room that is added where there is more.
DialogFit fitDialog(const Window& window, Size whole, Size room, Twips barThickness);

}  // namespace tolmer
