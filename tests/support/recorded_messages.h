// A message port that keeps what it was asked and answers with ok.
#pragma once

#include <string>
#include <vector>

#include "base/message_box.h"

namespace tolmer {

class RecordedMessages : public MessagePort {
 public:
  Answer messageBox(const MessageBox& box) override {
    boxes.push_back(box);
    return Answer::ok;
  }
  std::vector<std::string> texts() const {
    std::vector<std::string> all;
    for (const MessageBox& box : boxes) all.push_back(box.text);
    return all;
  }

  std::vector<MessageBox> boxes;
};

}  // namespace tolmer
