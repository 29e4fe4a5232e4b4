// Push buttons, check boxes and option buttons.
#pragma once

#include <string>
#include <utility>

#include "platform/control.h"

namespace tolmer {

// Click is raised for the user alone: code that wants a button's work calls its event procedure.
class Button : public Captioned<Control> {
 public:
  using Captioned::Captioned;
  ControlKind kind() const override { return ControlKind::button; }
  bool takesFocus() const override { return true; }

  // Pressed by Return wherever no other button has the focus; by Escape.
  bool isDefault() const { return isDefault_; }
  void setDefault(bool on) { assign(isDefault_, on, Change::focus); }
  bool isCancel() const { return isCancel_; }
  void setCancel(bool on) { assign(isCancel_, on, Change::focus); }

  // The user's press.
  void click() { raise(Click); }

  Event<> Click;

 private:
  bool isDefault_ = false;
  bool isCancel_ = false;
};

class CheckBox : public Captioned<Control> {
 public:
  using Captioned::Captioned;
  ControlKind kind() const override { return ControlKind::checkBox; }
  bool takesFocus() const override { return true; }

  int value() const { return value_; }  // 0 clear, 1 ticked, 2 grey
  // By the program or the user; Click follows either way, unless the value is the same.
  void setValue(int value) {
    if (assign(value_, value, Change::value)) raise(Click);
  }

  Event<> Click;

 private:
  int value_ = 0;
};

// One choice of several: of the options in one container at most one is on.
class OptionButton : public Captioned<Control> {
 public:
  using Captioned::Captioned;
  ControlKind kind() const override { return ControlKind::optionButton; }
  bool takesFocus() const override { return true; }

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

  bool value_ = false;
};

}  // namespace tolmer
