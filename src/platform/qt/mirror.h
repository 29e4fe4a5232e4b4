// What all peers of one desktop share.
#pragma once

#include "platform/qt/gate.h"
#include "platform/qt/input_filter.h"
#include "platform/qt/window_stack.h"

namespace tolmer {

struct Mirror {
  explicit Mirror(const Desktop& desktop) : desktop(desktop) {}
  const Desktop& desktop;
  Gate gate;
  InputFilter input{gate};
  WindowStack windows;
};

}  // namespace tolmer
