#include "shell/hider.h"

#include "platform/desktop.h"

namespace tolmer {

frmHider::frmHider(Desktop& desktop) : Window(desktop, "frmHider", WindowStyle::bare) {}

void frmHider::cover() {
  const UpdateLock lock(*this);
  const Size screen = desktop().screenSize();
  setPlace({0, 0, screen.width, screen.height});
  pnlHider.fill(screen);
  show();
}

}  // namespace tolmer
