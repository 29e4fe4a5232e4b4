#pragma once

#include "platform/curtain.h"
#include "platform/window.h"

namespace tolmer {

// The curtain over the whole screen while the notebook is at work before the first analysis.
class frmHider : public Window {
 public:
  explicit frmHider(Desktop& desktop);
  // Over the whole screen, and shown.
  void cover();

  Curtain pnlHider{this, "pnlHider"};
};

}  // namespace tolmer
