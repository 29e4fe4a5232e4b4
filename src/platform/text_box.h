#pragma once

#include <string>
#include <utility>

#include "platform/control.h"

namespace tolmer {

class TextBox : public Control {
 public:
  TextBox(Container* parent, std::string name) : Control(parent, std::move(name)) {
    setBackColour(colours::window);
    setForeColour(colours::windowText);
  }
  ControlKind kind() const override { return ControlKind::textBox; }
  bool takesFocus() const override { return true; }

  const std::string& text() const { return text_; }
  // By the program or the user; Change follows either way, unless the text is the same.
  void setText(std::string text) {
    if (assign(text_, std::move(text), Change::text)) raise(Changed);
  }
  bool multiLine() const { return multiLine_; }
  void setMultiLine(bool on) { assign(multiLine_, on, Change::look); }
  bool readOnly() const { return readOnly_; }
  void setReadOnly(bool on) { assign(readOnly_, on, Change::enabled); }

  // Scrolls a multi-line box as this key would if it had the focus: up, down, a Page key, home,
  // end.
  void scroll(int keyCode) {
    scrollKey_ = keyCode;
    notify(Change::value);
  }
  int lastScrollKey() const { return scrollKey_; }  // 0 before any

  // Marks all of a single line, so that typing replaces it; once it is on the screen.
  void selectAll() { notify(Change::focus); }

  Event<> Changed;

 private:
  std::string text_;
  bool multiLine_ = false;
  bool readOnly_ = false;
  int scrollKey_ = 0;
};

}  // namespace tolmer
