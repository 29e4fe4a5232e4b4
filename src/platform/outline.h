#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/control.h"

namespace tolmer {

// A list whose items stand under one another by indent; an item can be opened and closed.
class Outline : public Control {
 public:
  using Control::Control;
  ControlKind kind() const override { return ControlKind::outline; }
  bool takesFocus() const override { return true; }

  struct Item {
    std::string text;
    int indent = 0;    // 1 the outermost level
    int itemData = 0;  // the owner's number for it
    bool isLeaf = false;
    bool expanded = false;
  };

  const std::vector<Item>& items() const { return items_; }
  void addItem(std::string text, int indent, int itemData) {
    items_.push_back({std::move(text), indent, itemData, false, false});
    notify(Change::items);
  }
  void setLeaf(int index) {
    items_.at(static_cast<std::size_t>(index)).isLeaf = true;
    notify(Change::items);
  }
  bool expanded(int index) const { return items_.at(static_cast<std::size_t>(index)).expanded; }
  void setExpanded(int index, bool open) {
    auto& item = items_.at(static_cast<std::size_t>(index));
    if (item.expanded == open) return;
    item.expanded = open;
    notify(Change::items);
  }
  int listIndex() const { return listIndex_; }  // from 0; -1 for none
  // By the program or the user; Click follows either way, unless the item is selected already.
  void setListIndex(int index) {
    if (index < 0 || index >= static_cast<int>(items_.size())) index = -1;
    if (assign(listIndex_, index, Change::value)) raise(Click);
  }
  // The user's click: Click comes for the selected item too, since a click opens and closes it.
  void click(int index) {
    if (index == listIndex_)
      raise(Click);
    else
      setListIndex(index);
  }
  void doubleClick() { raise(DblClick); }

  Event<> Click;
  Event<> DblClick;

 private:
  std::vector<Item> items_;
  int listIndex_ = -1;
};

}  // namespace tolmer
