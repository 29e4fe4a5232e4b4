#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/control.h"

namespace tolmer {

// The notebook's control: tabs, each with a number of pages of which one is active. It is a
// container: what is put into it stands on whatever page is active.
class TabBook : public Container {
 public:
  using Container::Container;
  ControlKind kind() const override { return ControlKind::tabBook; }
  bool takesFocus() const override { return true; }

  // The tabs stand along the upper edge and take this much of the height; the page is the rest, and
  // children that belong on it start below.
  static constexpr Twips tabHeight = pixels(34);
  // A tab is so much wider than its caption; where not all have room, captions are cut.
  static constexpr Twips tabSides = pixels(32);

  struct Tab {
    std::string caption;
    int pageMax = 0;  // index of the last page
    int activePage = 0;
  };

  // Tabs and pages count from 0 in this control.
  int tabCount() const { return static_cast<int>(tabs_.size()); }
  const Tab& tab(int index) const { return tabs_.at(index); }
  void addTab(std::string caption, int pageMax) {
    tabs_.push_back({std::move(caption), pageMax, 0});
    notify(Change::items);
  }
  int activeTab() const { return activeTab_; }
  int activePage() const { return tabs_.empty() ? 0 : tab(activeTab_).activePage; }
  // By the program: no event. Anything outside the book is left aside.
  void setActive(int tab, int page) {
    if (tab < 0 || tab >= tabCount() || page < 0 || page > this->tab(tab).pageMax) return;
    activeTab_ = tab;
    tabs_[tab].activePage = page;
    notify(Change::value);
  }
  // The user takes a tab: its page last active comes up, and the event is raised.
  void chooseTab(int tab) {
    if (tab < 0 || tab >= tabCount() || tab == activeTab_) return;
    const int page = this->tab(tab).activePage;
    setActive(tab, page);
    raise(TabPageActivate, tab, page);
  }

  Event<int, int> TabPageActivate;  // tab, page

 private:
  std::vector<Tab> tabs_;
  int activeTab_ = 0;
};

}  // namespace tolmer
