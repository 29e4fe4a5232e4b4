#pragma once

#include <algorithm>
#include <utility>

#include "platform/control.h"

namespace tolmer {

// An edit box for one whole number.
class NumberBox : public Control {
 public:
  using Control::Control;
  ControlKind kind() const override { return ControlKind::numberBox; }
  bool takesFocus() const override { return true; }

  int value() const { return value_; }
  // By the program or the user; Changed follows either way, unless the number is the same. The
  // range limits what the user types, not what the program sets.
  void setValue(int value) {
    if (assign(value_, value, Change::value)) raise(Changed);
  }
  int min() const { return min_; }
  int max() const { return max_; }
  void setRange(int min, int max) {
    min_ = min;
    max_ = max;
    notify(Change::items);
  }

  // Marks the number, so that typing replaces it; once it is on the screen.
  void selectAll() { notify(Change::focus); }

  Event<> Changed;

 private:
  int value_ = 0;
  int min_ = 0;
  int max_ = 99;
};

}  // namespace tolmer
