// Controls in which the user types or chooses a value: text box, number box, drop-down list, scroll
// bar.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

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

// A drop-down list. A screen reader finds it by the label constructed just before it.
class ComboBox : public Control {
 public:
  using Control::Control;
  ControlKind kind() const override { return ControlKind::comboBox; }
  bool takesFocus() const override { return true; }

  const std::vector<std::string>& items() const { return items_; }
  void addItem(std::string item) {
    items_.push_back(std::move(item));
    notify(Change::items);
  }
  // Nothing is selected afterwards; no event.
  void clear() {
    items_.clear();
    listIndex_ = -1;
    notify(Change::items);
  }
  int listIndex() const { return listIndex_; }  // from 0; -1 for none
  // By the program or the user; Click follows either way, unless the entry is selected already.
  // An index outside the list counts as none.
  void setListIndex(int index) {
    if (index < 0 || index >= static_cast<int>(items_.size())) index = -1;
    if (assign(listIndex_, index, Change::value)) raise(Click);
  }

  Event<> Click;

 private:
  std::vector<std::string> items_;
  int listIndex_ = -1;
};

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
