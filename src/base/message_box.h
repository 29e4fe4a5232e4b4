// What a message box asks, and the one door through which code without windows can ask it.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tolmer {

enum class MessageIcon { none, critical, question, exclamation, information };
// Of saveDontSaveCancel the first answers yes and the second no.
enum class MessageButtons { ok, okCancel, yesNo, saveDontSaveCancel };
enum class Answer { ok, cancel, yes, no };

struct MessageBox {
  std::string title;  // empty: a window shows the program's name, a report an empty title
  std::string text;   // UTF-8
  MessageIcon icon = MessageIcon::none;
  MessageButtons buttons = MessageButtons::ok;
  // Work is lost by a no: Escape and the frame answer nothing then.
  bool noLosesWork = false;
  // Work is lost by a yes: Return answers no then.
  bool yesLosesWork = false;
};

// A button of a message box. "&" marks the letter that presses it.
struct AnswerButton {
  Answer answer;
  const char* caption;
};
// In their order.
inline std::vector<AnswerButton> answerButtons(MessageButtons buttons) {
  switch (buttons) {
    case MessageButtons::okCancel:
      return {{Answer::ok, "OK"}, {Answer::cancel, "Cancel"}};
    case MessageButtons::yesNo:
      return {{Answer::yes, "&Yes"}, {Answer::no, "&No"}};
    case MessageButtons::saveDontSaveCancel:
      return {{Answer::yes, "&Save"}, {Answer::no, "&Don't Save"}, {Answer::cancel, "&Cancel"}};
    case MessageButtons::ok:
      break;
  }
  return {{Answer::ok, "OK"}};
}
inline Answer answerToReturn(const MessageBox& box) {
  return box.yesLosesWork ? Answer::no : answerButtons(box.buttons).front().answer;
}
// What Escape and the close box answer: the last button; nothing where the box stays.
inline std::optional<Answer> answerToEscape(const MessageBox& box) {
  if (box.noLosesWork) return std::nullopt;
  return answerButtons(box.buttons).back().answer;
}

// Shows one message box and waits for its answer. Closing the box counts as cancel or no, or as ok
// where ok is the only button.
class MessagePort {
 public:
  virtual ~MessagePort() = default;
  virtual Answer messageBox(const MessageBox& box) = 0;
};

// A message box that was shown, and the answer it got.
struct AnsweredBox {
  MessageBox box;
  Answer answer = Answer::ok;
};

// Where nobody reads them: keeps all message boxes and answers with their first button.
class MessageLog : public MessagePort {
 public:
  Answer messageBox(const MessageBox& box) override {
    boxes_.push_back({box, answerButtons(box.buttons).front().answer});
    return boxes_.back().answer;
  }
  const std::vector<AnsweredBox>& boxes() const { return boxes_; }

 private:
  std::vector<AnsweredBox> boxes_;
};

}  // namespace tolmer
