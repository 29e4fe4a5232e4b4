#pragma once

#include <algorithm>
#include <utility>

#include "platform/control.h"

namespace tolmer {

// A bar of its own, upright where it is higher than wide.
class ScrollBar : public Control {
 public:
  using Control::Control;
  ControlKind kind() const override { return ControlKind::scrollBar; }
  bool takesFocus() const override { return true; }

  int value() const { return value_; }
  int max() const { return max_; }  // the value runs from 0 to here
  int smallChange() const { return smallChange_; }
  int largeChange() const { return largeChange_; }
  // A value beyond the new maximum comes down to it.
  void setRange(int max, int smallChange, int largeChange) {
    max_ = std::max(max, 0);
    smallChange_ = std::max(smallChange, 1);
    largeChange_ = std::max(largeChange, 1);
    notify(Change::items);
    setValue(value_);
  }
  // By the program or the user; Changed follows either way, unless the value is the same.
  void setValue(int value) {
    if (assign(value_, std::clamp(value, 0, max_), Change::value)) raise(Changed);
  }

  Event<> Changed;

 private:
  int value_ = 0;
  int max_ = 0;
  int smallChange_ = 1;
  int largeChange_ = 1;
};

}  // namespace tolmer
