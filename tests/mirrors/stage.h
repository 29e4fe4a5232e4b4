// A desktop with its user and script; the interface suite runs on each kind.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

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

enum class StageKind { headless, toolkit, chromium, firefox };
// Those that this test program has, and how it makes them.
std::vector<StageKind> stageKinds();
std::unique_ptr<Stage> makeStage(StageKind kind);

class StageTest : public testing::TestWithParam<StageKind> {
 protected:
  std::unique_ptr<Stage> stage = makeStage(GetParam());
  Desktop& desktop = stage->desktop();
  User& user = stage->user();
  Script& script = stage->script();
};

// A suite of a class derived from StageTest runs on all of them.
inline auto stages() { return testing::ValuesIn(stageKinds()); }
inline std::string stageName(const testing::TestParamInfo<StageKind>& info) {
  constexpr const char* names[] = {"headless", "toolkit", "chromium", "firefox"};
  return names[static_cast<int>(info.param)];
}

// Controls of usual size in rows from the top.
inline Rect at(int row, int column = 0) {
  return {pixels(20.0F + 180.0F * static_cast<float>(column)),
          pixels(10.0F + 34.0F * static_cast<float>(row)), pixels(160), pixels(28)};
}

}  // namespace tolmer::test
