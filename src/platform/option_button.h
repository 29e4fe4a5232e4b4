#pragma once

#include <string>
#include <utility>

#include "platform/control.h"

namespace tolmer {

// One choice of several: of the options in one container at most one is on.
class OptionButton : public Control {
 public:
  OptionButton(Container* parent, std::string name, std::string caption = {})
      : Control(parent, std::move(name)), caption_(std::move(caption)) {}
  ControlKind kind() const override { return ControlKind::optionButton; }
  bool takesFocus() const override { return true; }

  const std::string& caption() const { return caption_; }
  void setCaption(std::string caption) { assign(caption_, std::move(caption), Change::text); }
  bool value() const { return value_; }
  // By the program or the user. Turning on turns the others of the container off and is followed
  // by Click; turning off raises nothing.
  void setValue(bool on) {
    if (on == value_) return;
    if (on) turnOthersOff();
    assign(value_, on, Change::value);
    if (on) raise(Click);
  }
  void doubleClick() { raise(DblClick); }

  Event<> Click;
  Event<> DblClick;

 private:
  void turnOthersOff() {
    if (!parent()) return;
    for (Control* sibling : parent()->children())
      if (sibling != this && sibling->kind() == ControlKind::optionButton)
        static_cast<OptionButton*>(sibling)->setValue(false);
  }

  std::string caption_;
  bool value_ = false;
};

}  // namespace tolmer
