#pragma once

#include <string>
#include <utility>

#include "platform/control.h"

namespace tolmer {

class CheckBox : public Control {
 public:
  CheckBox(Container* parent, std::string name, std::string caption = {})
      : Control(parent, std::move(name)), caption_(std::move(caption)) {}
  ControlKind kind() const override { return ControlKind::checkBox; }
  bool takesFocus() const override { return true; }

  const std::string& caption() const { return caption_; }
  void setCaption(std::string caption) { assign(caption_, std::move(caption), Change::text); }
  int value() const { return value_; }  // 0 clear, 1 ticked, 2 grey
  // By the program or the user; Click follows either way, unless the value is the same.
  void setValue(int value) {
    if (assign(value_, value, Change::value)) raise(Click);
  }

  Event<> Click;

 private:
  std::string caption_;
  int value_ = 0;
};

}  // namespace tolmer
