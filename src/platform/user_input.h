// Where the user's mouse and keys go among the models: what every front end does alike.
#pragma once

#include <vector>

#include "platform/control.h"

namespace tolmer {

class Desktop;

// The taken key that this one means at the control with the focus: of the control's own, else of
// its window's, else of the frame's around that, else of the desktop's. Null where it is left to
// the control. Its work is to be raised.
const TakenKey* takenKey(Control& focus, const KeyPress& key);

// The same where no control has the focus.
const TakenKey* takenKey(const Desktop& desktop, const KeyPress& key);

// A release of the right button: MouseUp of the nearest control, outwards, that listens, though
// it be disabled.
void releaseRight(Control& control);

// The wheel turned over a control, by so many lines down: for the nearest panel, outwards, that
// listens. False where the control scrolls by itself, or none does.
bool turnWheel(Control& control, float lines);

// The window to which files go that fall anywhere on the program: the modal one, else the frame, if
// it listens. Null where they are not taken.
Window* takerOfDrops(Window* modal, const std::vector<Window*>& shown);

// A grid or graph, which know best where in them the mouse is.
bool raisesItsOwnMouse(const Control& control);

// The mouse over controls. Raises MouseDown, MouseUp and MouseMove, and Click of those kinds that
// have no press of their own (label that is no link, panel, image, the ground of a window), where
// the left button came down and up on the same one. A grid or graph raises its own.
class MouseRoute {
 public:
  void press(Control& control, MouseButton button);
  // `inside`: over the control on which it was released, which is the one that was pressed.
  void release(Control& control, MouseButton button, bool inside);
  void doubleClick(Control& control);
  void move(Control& control);
  // From then on the control may be gone.
  void forget(const Control& control);

 private:
  void releaseLeft(Control& control, bool inside);

  const Control* pressed_ = nullptr;      // only compared
  std::vector<const Control*> released_;  // that are being told, the innermost last
};

}  // namespace tolmer
