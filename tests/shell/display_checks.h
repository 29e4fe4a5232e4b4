// What must hold of the quadrants at every moment.
#pragma once

#include "shell/shell_parts.h"

namespace tolmer::test {

// Fails the test where a display stands twice or in no quadrant, where a menu entry disagrees with
// iDisplayState, or where the panel's controls do not fit the plots on the screen.
void expectSoundQuadrants(ShellParts& parts);

// Fails the test where a shown display differs from one that is drawn anew from the state.
void expectFreshDisplays(ShellParts& parts);

}  // namespace tolmer::test
