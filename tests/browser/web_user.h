// The same user and script before a real page in a browser.
#pragma once

#include <cstdio>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "platform/web/web_desktop.h"
#include "support/user.h"

namespace tolmer::test {

// A page in a browser of that name, worked through tests/browser/driver.mjs. What the page tells
// comes with the answer to each request.
class BrowserPage : public PageLine {
 public:
  explicit BrowserPage(const std::string& browser);
  ~BrowserPage() override;
  BrowserPage(const BrowserPage&) = delete;
  BrowserPage& operator=(const BrowserPage&) = delete;

  void post(const std::string& batch) override { request({"batch", batch}); }
  std::optional<std::string> next(double milliseconds) override;
  std::string lend(std::string_view) override { return {}; }  // nothing is saved or opened there
  std::optional<std::string> borrow(const std::string&) override { return std::nullopt; }
  // Something that the user does there, and its arguments.
  void request(const std::vector<std::string>& words);
  // Forgets the page's nodes and what it has told.
  void startAnew();

  // What stands in for the user as soon as the program waits; the innermost first.
  std::vector<std::function<void()>> whenWaiting;

 private:
  int toDriver_ = -1;
  std::FILE* fromDriver_ = nullptr;
  int process_ = 0;
  std::deque<std::string> told_;
};

class ScriptedWebDesktop : public WebDesktop {
 public:
  explicit ScriptedWebDesktop(BrowserPage& page);

  std::function<void(Window&)> onModal;
  std::function<Answer(const MessageBox&)> onMessageBox;

  void modalLoop(Window& window) override;
  Answer messageBox(const MessageBox& box) override;
  void advance(int milliseconds);
  // The user does this, and all that comes of it happens.
  void does(const std::vector<std::string>& words);

 private:
  BrowserPage& page_;
  std::int64_t ahead_ = 0;  // of the real clock, in milliseconds
};

class WebUser : public User {
 public:
  explicit WebUser(ScriptedWebDesktop& desktop) : desktop_(desktop) {}

 protected:
  std::vector<Window*> windowsOnScreen() override { return desktop_.windows(); }
  Window* modalWindow() override { return desktop_.modalWindow(); }
  void doClick(Control& control) override { act("click", control); }
  void doDoubleClick(Control& control) override { act("double", control); }
  void doRightClick(Control& control) override { act("right", control); }
  void doType(Control& control, const std::string& text) override { act("type", control, {text}); }
  void doChoose(Control& control, int index) override {
    act("choose", control, {std::to_string(index)});
  }
  void doMenu(Window& window, const std::vector<MenuItem*>& path) override;
  void doKey(Window& window, const KeyPress& press) override;
  void doClose(Window& window) override { act("close", window); }
  void doState(Window& window, WindowState state) override;

 private:
  void act(const char* what, const Control& control, std::vector<std::string> more = {});
  ScriptedWebDesktop& desktop_;
};

}  // namespace tolmer::test
