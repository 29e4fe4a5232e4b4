#include "shell/hider.h"

#include "platform/desktop.h"

namespace tolmer {

frmHider::frmHider(Desktop& desktop) : Window(desktop, "frmHider", WindowStyle::bare) {}

void frmHider::cover() {
  const Size screen = desktop().screenSize();
  if (visible() && width() == screen.width && height() == screen.height) return show();
  const UpdateLock lock(*this);  // at the end of which all of it is painted anew
  setPlace({0, 0, screen.width, screen.height});
  pnlHider.fill(screen);
  show();
}

}  // namespace tolmer
