// What a test expects to come up, in order: a modal window or message box that is not announced
// fails the test by name, and so does one that was announced and never came.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>

#include "platform/headless/headless_desktop.h"
#include "platform/window.h"

namespace tolmer::test {

class Script {
 public:
  using OnModal = std::function<void(Window&)>;
  using OnMessageBox = std::function<Answer(const MessageBox&)>;

  explicit Script(HeadlessDesktop& desktop) : Script(desktop.onModal, desktop.onMessageBox) {}
  // For any desktop that calls these two where a user would have to act.
  Script(OnModal& onModal, OnMessageBox& onMessageBox);
  ~Script();
  Script(const Script&) = delete;
  Script& operator=(const Script&) = delete;

  // The next thing to come up is this modal window; the user then does these actions.
  void window(std::string name, std::function<void()> actions = {});
  // The next thing to come up is a box of this title and text, and is answered so.
  void box(std::string title, std::string text, Answer answer = Answer::ok);
  // And of this icon and these buttons.
  void box(const MessageBox& expected, Answer answer = Answer::ok);
  // Fails the test for what was announced and has not come.
  void finish();

 private:
  struct Step {
    bool isBox;
    std::string name;  // of the window, or the box's title
    std::string text;
    Answer answer;
    std::function<void()> actions;
    std::optional<MessageBox> whole{};  // where icon and buttons are announced, too
  };
  Step take(bool isBox, const std::string& name, const std::string& text);

  OnModal& onModal_;
  OnMessageBox& onMessageBox_;
  std::deque<Step> steps_;
};

}  // namespace tolmer::test
