#pragma once

#include <algorithm>
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
    items_.at(index).isLeaf = true;
    notify(Change::items);
  }
  bool expanded(int index) const { return items_.at(index).expanded; }
  void setExpanded(int index, bool open) {
    auto& item = items_.at(index);
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
  // The keys lead to another item, which opens and closes nothing on the way.
  void moveTo(int index) {
    if (index < 0 || index >= static_cast<int>(items_.size())) return;
    if (assign(listIndex_, index, Change::value)) raise(Moved);
  }

  // The user opens or closes an item by its mark or by keys. What is selected within a closed one
  // would be out of sight, so the item itself is selected then.
  void openByUser(int index, bool open) {
    if (!open && isWithin(listIndex_, index)) moveTo(index);
    setExpanded(index, open);
  }

  Event<> Click;
  Event<> Moved;  // by keys, or with a group that was closed
  Event<> DblClick;

 private:
  bool isWithin(int index, int group) const {
    if (index <= group) return false;
    const auto first = items_.begin() + group;
    return std::all_of(first + 1, items_.begin() + index + 1,
                       [first](const Item& item) { return item.indent > first->indent; });
  }

  std::vector<Item> items_;
  int listIndex_ = -1;
};

}  // namespace tolmer
