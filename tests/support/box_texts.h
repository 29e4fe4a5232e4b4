#pragma once

#include <string>
#include <vector>

#include "base/message_box.h"

namespace tolmer::test {

inline std::vector<std::string> textsOf(const MessageLog& log) {
  std::vector<std::string> texts;
  for (const AnsweredBox& one : log.boxes()) texts.push_back(one.box.text);
  return texts;
}

}  // namespace tolmer::test
