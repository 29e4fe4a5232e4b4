// The ground of the start, with its colours and its pattern of words.
#pragma once

#include <string>

#include "platform/panels.h"

namespace tolmer {

// A ground that hides what lies behind its window: the name of the family of modules over and over.
class Curtain : public Panel {
 public:
  Curtain(Container* parent, std::string name);
  // Fills that much of its container from the upper left corner.
  void fill(Size room);
};

}  // namespace tolmer
