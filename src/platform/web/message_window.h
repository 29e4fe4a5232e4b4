// A message box: a window like others, which the page lays out by the length of its text.
#pragma once

#include <deque>

#include "base/message_box.h"
#include "platform/buttons.h"
#include "platform/labels.h"
#include "platform/window.h"

namespace tolmer {

class MessageWindow : public Window {
 public:
  MessageWindow(Desktop& desktop, const MessageBox& box);
  const MessageBox& box() const { return box_; }
  Answer answer() const { return answer_; }

 private:
  void add(const AnswerButton& button);
  void takeArrows();

  const MessageBox& box_;
  Answer answer_;
  Label lblText_;
  std::deque<Button> buttons_;
};

}  // namespace tolmer
