// A desktop with its user and script; the interface suite runs on each kind.
#pragma once

#include <memory>

#include "platform/desktop.h"
#include "support/script.h"
#include "support/user.h"

namespace tolmer::test {

class Stage {
 public:
  virtual ~Stage() = default;
  virtual Desktop& desktop() = 0;
  virtual User& user() = 0;
  virtual Script& script() = 0;
  virtual void advance(int milliseconds) = 0;
};

enum class StageKind { headless, toolkit };
std::unique_ptr<Stage> makeStage(StageKind kind);

}  // namespace tolmer::test
