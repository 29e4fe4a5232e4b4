#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/control.h"

namespace tolmer {

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

}  // namespace tolmer
