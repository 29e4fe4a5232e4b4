// Surfaces with other controls on them: panel, frame, and the curtain of the start.
#pragma once

#include <string>
#include <utility>

#include "platform/control.h"

namespace tolmer {

// A plain surface for other controls, with a caption in its middle, or none.
class Panel : public Container {
 public:
  Panel(Container* parent, std::string name, std::string caption = {})
      : Container(parent, std::move(name)), caption_(std::move(caption)) {}
  ControlKind kind() const override { return ControlKind::panel; }

  const std::string& caption() const { return caption_; }
  void setCaption(std::string caption) { assign(caption_, std::move(caption), Change::text); }
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

 private:
  std::string caption_;
  int raised_ = 0;
  bool border_ = false;
  bool stopsByPlace_ = false;
};

// A box with a caption in its upper edge around other controls.
class Frame : public Container {
 public:
  Frame(Container* parent, std::string name, std::string caption = {})
      : Container(parent, std::move(name)), caption_(std::move(caption)) {}
  ControlKind kind() const override { return ControlKind::frame; }

  const std::string& caption() const { return caption_; }
  void setCaption(std::string caption) { assign(caption_, std::move(caption), Change::text); }

 private:
  std::string caption_;
};

// A ground that hides what lies behind its window: the name of the family of modules over and over.
class Curtain : public Panel {
 public:
  Curtain(Container* parent, std::string name);
  // Fills that much of its container from the upper left corner.
  void fill(Size room);
};

}  // namespace tolmer
