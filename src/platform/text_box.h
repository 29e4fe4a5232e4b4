#pragma once

#include <algorithm>
#include <string>
#include <string_view>
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
  // By the program or the user; Change follows either way, unless the text is the same. Nothing is
  // marked then, and the cursor stands at the end.
  void setText(const std::string& text) { put(text, text.size()); }
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

  // The part that the user has marked, in bytes of the text; without length, the cursor.
  struct Marked {
    std::size_t first = 0;
    std::size_t length = 0;
  };
  // Reported by the front end.
  void reportMarked(Marked marked) {
    marked_.first = std::min(marked.first, text_.size());
    marked_.length = std::min(marked.length, text_.size() - marked_.first);
  }
  Marked marked() const { return marked_; }
  std::string markedText() const { return text_.substr(marked_.first, marked_.length); }
  // As a paste does it: the cursor stands behind the text.
  void replaceMarked(std::string_view text) {
    std::string replaced = text_;
    replaced.replace(marked_.first, marked_.length, text);
    put(replaced, marked_.first + text.size());
  }

  // Marks all of a single line, so that typing replaces it; once it is on the screen.
  void selectAll() {
    marked_ = {0, text_.size()};
    notify(Change::focus);
  }

  Event<> Changed;

 private:
  void put(const std::string& text, std::size_t cursor) {
    if (text == text_) return;
    marked_ = {cursor, 0};
    assign(text_, text, Change::text);
    raise(Changed);
  }

  std::string text_;
  Marked marked_;
  bool multiLine_ = false;
  bool readOnly_ = false;
  int scrollKey_ = 0;
};

}  // namespace tolmer
