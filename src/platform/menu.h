#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/input.h"
#include "platform/observed.h"

namespace tolmer {

// One entry of a menu, with the entries below it. The entry without a parent is a menu bar or a
// pop-up menu. Entries are members of a window; an entry goes after the entries below it.
class MenuItem : public Observed {
 public:
  MenuItem(MenuItem* parent, std::string name, std::string caption = {}, KeyPress shortcut = {})
      : name_(std::move(name)), caption_(std::move(caption)), shortcut_(shortcut) {
    if (parent) parent->items_.push_back(this);
  }
  ~MenuItem() override { setPeer(nullptr); }

  const std::string& name() const { return name_; }        // "mnuFileExit", "mnuTableType(2)"
  const std::string& caption() const { return caption_; }  // "&" marks the mnemonic
  bool isSeparator() const { return caption_ == "-"; }
  const std::vector<MenuItem*>& items() const { return items_; }

  bool enabled() const { return enabled_; }
  void setEnabled(bool on) { assign(enabled_, on, Change::enabled); }
  bool checked() const { return checked_; }
  void setChecked(bool on) { assign(checked_, on, Change::value); }
  // Can it carry a tick?
  bool checkable() const { return checkable_; }
  void setCheckable(bool on) { assign(checkable_, on, Change::look); }

  // The key that chooses the entry from anywhere in its window; code 0 without one. Where text is
  // typed, the keys that edit text stay the text's.
  const KeyPress& shortcut() const { return shortcut_; }
  void setShortcut(const KeyPress& key) { assign(shortcut_, key, Change::look); }
  // The entry below this one with that shortcut; null without.
  MenuItem* withShortcut(const KeyPress& key) {
    for (MenuItem* item : items_) {
      if (item->shortcut_.code != 0 && item->shortcut_ == key) return item;
      if (MenuItem* found = item->withShortcut(key)) return found;
    }
    return nullptr;
  }

  // The user's choice of the entry; for an entry with entries below, they open.
  void click() { raise(Click); }

  Event<> Click;

 private:
  std::string name_;
  std::string caption_;
  std::vector<MenuItem*> items_;
  KeyPress shortcut_;
  bool enabled_ = true;
  bool checked_ = false;
  bool checkable_ = false;
};

}  // namespace tolmer
