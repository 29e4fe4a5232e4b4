#pragma once

#include <string>
#include <utility>

#include "platform/control.h"

namespace tolmer {

// Click is raised for the user alone: code that wants a button's work calls its event procedure.
class Button : public Control {
 public:
  Button(Container* parent, std::string name, std::string caption = {})
      : Control(parent, std::move(name)), caption_(std::move(caption)) {}
  ControlKind kind() const override { return ControlKind::button; }
  bool takesFocus() const override { return true; }

  const std::string& caption() const { return caption_; }  // "&" marks the mnemonic
  void setCaption(std::string caption) { assign(caption_, std::move(caption), Change::text); }
  // Pressed by Return wherever no other button has the focus; by Escape.
  bool isDefault() const { return isDefault_; }
  void setDefault(bool on) { assign(isDefault_, on, Change::focus); }
  bool isCancel() const { return isCancel_; }
  void setCancel(bool on) { assign(isCancel_, on, Change::focus); }

  // The user's press.
  void click() { raise(Click); }

  Event<> Click;

 private:
  std::string caption_;
  bool isDefault_ = false;
  bool isCancel_ = false;
};

}  // namespace tolmer
