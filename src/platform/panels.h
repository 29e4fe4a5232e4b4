// Surfaces with other controls on them: panel and frame.
#pragma once

#include <string>
#include <utility>

#include "platform/control.h"

namespace tolmer {

// A plain surface for other controls, with a caption in its middle, or none.
class Panel : public Captioned<Container> {
 public:
  using Captioned::Captioned;
  ControlKind kind() const override { return ControlKind::panel; }

  bool border() const { return border_; }
  void setBorder(bool on) { assign(border_, on, Change::look); }
  // Children beyond the panel's edges are cut off; it is scrolled by moving a child.
  void click() { raise(Click); }
  // Above the other controls of its container.
  void bringToFront() {
    ++raised_;
    notify(Change::look);
  }
  int raised() const { return raised_; }  // counts the calls of bringToFront
  // The Tab key goes through what stands on it from top to bottom, whatever was constructed first;
  // to be called again after controls were moved.
  void orderStopsByPlace() {
    stopsByPlace_ = true;
    notify(Change::children);
  }
  bool stopsByPlace() const { return stopsByPlace_; }

  Event<> Click;
  Event<float> Wheel;  // turned over it or what stands on it, by so many lines down

 private:
  int raised_ = 0;
  bool border_ = false;
  bool stopsByPlace_ = false;
};

// A box with a caption in its upper edge around other controls.
class Frame : public Captioned<Container> {
 public:
  using Captioned::Captioned;
  ControlKind kind() const override { return ControlKind::frame; }
};

}  // namespace tolmer
