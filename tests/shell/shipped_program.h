// The whole program on the shipped course, without a screen.
#pragma once

#include <gtest/gtest.h>

#include "shell/module.h"
#include "support/headless_user.h"
#include "support/script.h"
#include "support/tree.h"

namespace tolmer::test {

class ShippedProgram : public testing::Test {
 protected:
  // From the start to the quadrants of the default example.
  void startWithDefaultExample() {
    script.window("frmOpeningBook");
    script.window("frmNotebook", [&] { user.click("frmNotebook", "cmdOK"); });
    script.window("frmModelDesign", [&] { user.click("frmModelDesign", "cmdOK"); });
    script.window("frmHint", [&] { user.click("frmHint", "cmdOK"); });
    module.Main();
    script.finish();
  }
  const AnalysisState& state() { return module.parts().state; }

  HeadlessDesktop desktop;
  HeadlessUser user{desktop};
  Script script{desktop};
  Module module{desktop, TOLMER_PROGRAM_FOLDER};
};

}  // namespace tolmer::test
