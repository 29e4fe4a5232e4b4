// The user of windows on the headless desktop.
#pragma once

#include "platform/headless/headless_desktop.h"
#include "platform/user_input.h"
#include "support/user.h"

namespace tolmer::test {

class HeadlessUser : public User {
 public:
  explicit HeadlessUser(HeadlessDesktop& desktop) : desktop_(desktop) {}

 protected:
  std::vector<Window*> windowsOnScreen() override { return desktop_.windows(); }
  Window* modalWindow() override { return desktop_.modalWindow(); }
  void doClick(Control& control) override;
  void doDoubleClick(Control& control) override;
  void doRightClick(Control& control) override;
  void doType(Control& control, const std::string& text) override;
  void doChoose(Control& control, int index) override;
  void doMenu(Window& window, const std::vector<MenuItem*>& path) override;
  void doKey(Window& window, const KeyPress& press) override;
  void doClose(Window& window) override { window.requestClose(); }
  void doState(Window& window, WindowState state) override { window.reportState(state); }

 private:
  HeadlessDesktop& desktop_;
  MouseRoute mouse_;
};

}  // namespace tolmer::test
