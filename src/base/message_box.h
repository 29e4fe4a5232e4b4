// What a message box asks, and the one door through which code without windows can ask it.
#pragma once

#include <string>

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
};

// Shows one message box and waits for its answer. Closing the box counts as cancel or no, or as ok
// where ok is the only button.
class MessagePort {
 public:
  virtual ~MessagePort() = default;
  virtual Answer messageBox(const MessageBox& box) = 0;
};

}  // namespace tolmer
